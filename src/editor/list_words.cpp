#include "editor/list_words.h"

#include "model/design.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace pistaro {

namespace {

using Kind = ListWord::Kind;
using Place = ListWord::Place;

constexpr std::string_view Times = "×";
constexpr std::array<std::string_view, 10> Bullets{"•", "·", "–", "—", "▪", "◦", "☐", "☑", "✓", "…"};
constexpr std::array<std::string_view, 5> Dashes{"-", "–", "—", "…", ".."};
constexpr std::array<std::string_view, 8> Currencies{"€", "$", "£", "EUR", "EURO", "CHF", "GBP", "USD"};
constexpr std::array<std::string_view, 4> Lengths{"CM", "MM", "M", "°"};

std::optional<int> WholeNumber(std::string_view text) {
    if (text.empty() || !std::ranges::all_of(text, IsDigit)) return std::nullopt;
    int number = MaxElements + 1; // what is beyond measure is as wrong as that
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// "C999", though the catalogue has none such.
bool LooksLikeCode(std::string_view word) {
    constexpr std::ptrdiff_t leastDigits = 2;
    return IsCapital(word.front()) && std::ranges::count_if(word, IsDigit) >= leastDigits &&
           std::ranges::all_of(word, [](char c) { return IsDigit(c) || IsCapital(c); });
}

bool IsDash(std::string_view text) { return text == "." || std::ranges::find(Dashes, text) != Dashes.end(); }

bool IsCurrency(std::string_view plain) { return std::ranges::find(Currencies, plain) != Currencies.end(); }
bool IsLength(std::string_view plain) { return std::ranges::find(Lengths, plain) != Lengths.end(); }
bool EndsAsLength(std::string_view plain) {
    return std::ranges::any_of(Lengths, [&](std::string_view unit) { return plain.ends_with(unit); });
}

/// "2–3", "2-3" or "2…3".
bool IsRange(std::string_view plain) {
    return std::ranges::any_of(Dashes, [&](std::string_view dash) {
        const auto at = plain.find(dash);
        if (at == std::string_view::npos || !WholeNumber(plain.substr(0, at))) return false;
        return WholeNumber(Trimmed(plain.substr(at + dash.size()), ".")).has_value();
    });
}

/// "3€", "€2.50" or "35cm".
bool IsMeasure(std::string_view plain) {
    const auto isAmount = [](std::string_view text) {
        return !text.empty() && std::ranges::any_of(text, IsDigit) && std::ranges::all_of(text, [](char c) {
            return IsDigit(c) || c == '.' || c == '-' || c == DecimalComma;
        });
    };
    const auto ends = [&](std::string_view unit) {
        return plain.ends_with(unit) && isAmount(plain.substr(0, plain.size() - unit.size()));
    };
    const auto begins = [&](std::string_view unit) {
        return plain.starts_with(unit) && isAmount(plain.substr(unit.size()));
    };
    return std::ranges::any_of(Currencies, begins) || std::ranges::any_of(Currencies, ends) ||
           std::ranges::any_of(Lengths, ends);
}

class WordReader {
public:
    WordReader(const Catalogue& catalogue, Hands hands) : catalogue_(catalogue), hands_(hands) {}

    void Read(std::string_view text) {
        for (const std::string_view part : Split(text, " \t\r:=|;,")) {
            const bool isEnumeration = Words.empty() && part.size() > 1 &&
                                       (part.ends_with('.') || part.ends_with(')')) &&
                                       WholeNumber(part.substr(0, part.size() - 1)) && part.size() < text.size();
            if (!isEnumeration) AddWord(part);
        }
        TakeMeasured();
        LeaveOpenWhatIsBetween();
        std::erase_if(Words, [](const ListWord& word) { return word.What == Kind::Dash; });
    }

    ListWords Words;

private:
    void Add(Kind what, std::string_view text) { Words.push_back({what, std::string(text), {}, 0, {}}); }

    void AddWord(std::string_view text) {
        const std::string plain = PlainWord(text);
        if (IsDash(text)) return Add(Kind::Dash, text);
        if (plain.empty()) return;
        if (plain == "X") {
            if (std::ranges::any_of(Words, [](const ListWord& word) { return word.What != Kind::Dash; }))
                Add(Kind::Sign, text);
            return; // at the beginning it is a bullet
        }
        if (IsRange(plain)) return Add(Kind::Count, text);
        if (IsCurrency(plain) || IsLength(plain) || IsMeasure(plain)) return Add(Kind::Measure, text);
        if (!AddCount(plain, text) && !AddCounted(plain, text)) Words.push_back(CodeOf(plain, text));
    }

    /// "3", "x3" or "3x".
    bool AddCount(std::string_view plain, std::string_view text) {
        ListWord word{Kind::Count, std::string(text), {}, 0, Place::Anywhere};
        if (plain.starts_with('X')) {
            word.Side = Place::Behind;
            plain.remove_prefix(1);
        } else if (plain.ends_with('X')) {
            word.Side = Place::Ahead;
            plain.remove_suffix(1);
        }
        const auto count = WholeNumber(plain);
        if (!count) return false;
        word.Count = *count;
        Words.push_back(std::move(word));
        return true;
    }

    /// "C160x3", "3xC160" or "C160x"; but "35x16" tells how large something is.
    bool AddCounted(std::string_view plain, std::string_view text) {
        for (auto sign = plain.find('X'); sign != std::string::npos; sign = plain.find('X', sign + 1)) {
            const std::string_view left = plain.substr(0, sign), right = plain.substr(sign + 1);
            if (left.empty()) continue;
            const ListWord before = CodeOf(left, text);
            if (const auto count = WholeNumber(right); count && before.IsCode()) {
                Words.push_back(before);
                Words.push_back({Kind::Count, {}, {}, *count, Place::Behind});
                return true;
            }
            if (right.empty()) {
                if (before.What != Kind::Piece) return false;
                Words.push_back(before);
                Add(Kind::Sign, {});
                return true;
            }
            const ListWord behind = CodeOf(right, text);
            if (const auto count = WholeNumber(left); count && behind.IsCode()) {
                Words.push_back({Kind::Count, {}, {}, *count, Place::Ahead});
                Words.push_back(behind);
                return true;
            }
        }
        return false;
    }

    ListWord CodeOf(std::string_view plain, std::string_view text) const {
        ListWord word{Kind::Other, std::string(text), std::string(plain), 0, {}};
        const bool isProduct = catalogue_.Find(plain) == nullptr && catalogue_.Find(word.Code + "L") != nullptr;
        if (isProduct && hands_ == Hands::Optional) word.Code += "L";
        if (catalogue_.Find(word.Code) != nullptr) {
            word.What = Kind::Piece;
        } else if (isProduct || LooksLikeCode(plain)) {
            word.What = Kind::Unknown;
        }
        return word;
    }

    /// A number beside "€", or ahead of "cm", tells no count unless "x" stands between it and a piece.
    void TakeMeasured() {
        for (std::size_t at = 0; at < Words.size(); ++at) {
            if (Words[at].What != Kind::Measure) continue;
            const std::string unit = PlainWord(Words[at].Text);
            const bool isAlone = IsCurrency(unit) || IsLength(unit);
            const bool isTimes = at > 2 && Words[at - 2].What == Kind::Sign && Words[at - 3].IsCode();
            if (isAlone && at > 0 && Words[at - 1].IsBareCount() && !isTimes) {
                Words[at - 1].What = Kind::Measure;
            } else if (IsCurrency(unit) && at + 1 < Words.size() && Words[at + 1].IsBareCount()) {
                Words[at + 1].What = Kind::Measure;
            }
            if (EndsAsLength(unit)) TakeWidth(isAlone ? at - 1 : at);
        }
    }

    /// The "35" of "35 x 16 cm", whose 16 stands there.
    void TakeWidth(std::size_t length) {
        const bool hasWidth = length < Words.size() && length > 1 && Words[length].What == Kind::Measure &&
                              Words[length - 1].What == Kind::Sign && Words[length - 2].IsBareCount();
        if (hasWidth) Words[length - 2].What = Kind::Measure;
    }

    /// Neither "2 – 3" nor "35 x 16" is a count.
    void LeaveOpenWhatIsBetween() {
        for (std::size_t at = 1; at + 1 < Words.size(); ++at) {
            if (Words[at].What != Kind::Dash && Words[at].What != Kind::Sign) continue;
            if (Words[at - 1].IsBareCount() && Words[at + 1].IsBareCount())
                Words[at - 1].Count = Words[at + 1].Count = 0;
        }
    }

    const Catalogue& catalogue_;
    const Hands hands_;
};

} // namespace

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string_view Trimmed(std::string_view text, std::string_view edges) {
    const auto first = text.find_first_not_of(edges);
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(edges) - first + 1);
}

std::vector<std::string_view> Split(std::string_view text, std::string_view partings) {
    std::vector<std::string_view> parts;
    while (true) {
        const auto end = text.find_first_of(partings);
        parts.push_back(Trimmed(text.substr(0, end)));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::string PlainWord(std::string_view text) {
    for (std::size_t before = text.size() + 1; text.size() < before;) {
        before = text.size();
        text = Trimmed(text, " \t\r()[]{}\"'.!?-_");
        for (const std::string_view bullet : Bullets) {
            if (text.starts_with(bullet)) text.remove_prefix(bullet.size());
            if (text.ends_with(bullet)) text.remove_suffix(bullet.size());
        }
    }
    std::string plain;
    while (!text.empty()) {
        const bool times = text.starts_with(Times);
        plain += times || text.front() == '*' ? 'X' : Capital(text.front());
        text.remove_prefix(times ? Times.size() : 1);
    }
    return plain;
}

ListWords WordsOfList(const Catalogue& catalogue, std::string_view text, Hands hands) {
    WordReader reader(catalogue, hands);
    reader.Read(text);
    return std::move(reader.Words);
}

} // namespace pistaro
