#include "editor/read_piece_list.h"

#include "model/design.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace pistaro {

namespace {

constexpr std::string_view Partings = "\t|;,"; ///< the first of these that a row has parts its fields
constexpr std::string_view Times = "×";
constexpr char DecimalComma = '\x1F'; ///< in place of one, while a text is read
constexpr std::string_view HardBlank = "\xC2\xA0";
constexpr std::array<std::string_view, 11> Bullets{"•", "·", "–", "—", "▪", "◦", "☐", "☑", "✓", "€", "…"};

struct Word {
    enum class Kind { Piece, Unknown, Count, Sign, Other };
    enum class Place { Anywhere, Behind, Ahead }; ///< of a count: of which side the "x" tells

    Kind What = Kind::Other;
    std::string Text; ///< as it was written
    std::string Code; ///< of a piece
    int Count = 0;
    Place Side = Place::Anywhere;

    bool IsCode() const { return What == Kind::Piece || What == Kind::Unknown; }
};

using Words = std::vector<Word>;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string_view Trimmed(std::string_view text, std::string_view edges = " \t\r") {
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

/// In capital letters, with "X" for each sign of multiplication, without bullets and brackets around it.
std::string Plain(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto sign = std::ranges::find_if(Bullets, [&](auto bullet) { return text.starts_with(bullet); });
        if (sign != Bullets.end()) {
            text.remove_prefix(sign->size());
            continue;
        }
        const bool times = text.starts_with(Times);
        plain += times || text.front() == '*' ? 'X' : Capital(text.front());
        text.remove_prefix(times ? Times.size() : 1);
    }
    return std::string(Trimmed(plain, "()[]{}\"'.!?-_"));
}

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

class ListReader {
public:
    ListReader(const Catalogue& catalogue, Hands hands) : catalogue_(catalogue), hands_(hands) {}

    void ReadLine(std::string_view line) {
        ++line_;
        const std::ptrdiff_t codes = CodesIn(WordsOf(line));
        if (codes == 0) return ReadStrangeLine(line);
        if (codes == 1) return ReadRow(line);
        for (const std::string_view part : Split(line, Partings))
            ReadPart(part);
    }

    PieceListReading Reading;

private:
    static std::ptrdiff_t CodesIn(const Words& words) { return std::ranges::count_if(words, &Word::IsCode); }

    Words WordsOf(std::string_view text) {
        Words words;
        for (const std::string_view part : Split(text, " \t\r:=|;,")) {
            const bool isEnumeration = words.empty() && part.size() > 1 &&
                                       (part.ends_with('.') || part.ends_with(')')) &&
                                       WholeNumber(part.substr(0, part.size() - 1)) && part.size() < text.size();
            if (!isEnumeration) AddWord(words, part);
        }
        return words;
    }

    void AddWord(Words& words, std::string_view text) {
        const std::string plain = Plain(text);
        if (plain.empty()) return;
        if (plain == "X") {
            if (!words.empty()) words.push_back({Word::Kind::Sign, std::string(text), {}, 0, {}});
            return; // at the beginning it is a bullet
        }
        if (AddCount(words, plain, text)) return;
        for (auto sign = plain.find('X'); sign != std::string::npos; sign = plain.find('X', sign + 1)) {
            const std::string_view left = std::string_view(plain).substr(0, sign);
            const std::string_view right = std::string_view(plain).substr(sign + 1);
            if (const auto count = WholeNumber(right); count && !left.empty()) {
                AddCode(words, left, text);
                words.push_back({Word::Kind::Count, {}, {}, *count, Word::Place::Behind});
                return;
            }
            if (right.empty() && catalogue_.Find(left) != nullptr) { // "C160x 3"
                AddCode(words, left, text);
                words.push_back({Word::Kind::Sign, {}, {}, 0, {}});
                return;
            }
            if (const auto count = WholeNumber(left); count && !right.empty()) {
                words.push_back({Word::Kind::Count, {}, {}, *count, Word::Place::Ahead});
                AddCode(words, right, text);
                return;
            }
        }
        AddCode(words, plain, text);
    }

    /// "3", "x3" or "3x".
    static bool AddCount(Words& words, std::string_view plain, std::string_view text) {
        Word word{Word::Kind::Count, std::string(text), {}, 0, Word::Place::Anywhere};
        if (plain.starts_with('X')) {
            word.Side = Word::Place::Behind;
            plain.remove_prefix(1);
        } else if (plain.ends_with('X')) {
            word.Side = Word::Place::Ahead;
            plain.remove_suffix(1);
        }
        const auto count = WholeNumber(plain);
        if (!count) return false;
        word.Count = *count;
        words.push_back(std::move(word));
        return true;
    }

    void AddCode(Words& words, std::string_view plain, std::string_view text) {
        Word word{Word::Kind::Other, std::string(text), std::string(plain), 0, {}};
        const bool isProduct = catalogue_.Find(plain) == nullptr && catalogue_.Find(word.Code + "L") != nullptr;
        if (isProduct && hands_ == Hands::Optional) word.Code += "L";
        if (catalogue_.Find(word.Code) != nullptr) {
            word.What = Word::Kind::Piece;
        } else if (isProduct || LooksLikeCode(plain)) {
            word.What = Word::Kind::Unknown;
            if (isProduct && Reading.LacksHand.empty()) Reading.LacksHand = word.Text;
        }
        words.push_back(std::move(word));
    }

    /// What names no piece. A table's head and the line below it are no part of a list.
    void ReadStrangeLine(std::string_view line) {
        const bool isTable = line.find_first_of("|\t") != std::string_view::npos;
        if (isTable && std::ranges::none_of(line, IsDigit)) return;
        Tell(line);
    }

    void Tell(std::string_view text) {
        std::string words(Trimmed(text));
        if (Plain(words).empty()) return;
        std::ranges::replace(words, DecimalComma, ',');
        Reading.NotUnderstood.push_back({std::move(words), line_});
    }

    void Add(std::string_view text, const std::string& code, std::optional<int> count) {
        if (!count || *count < 1 || *count > MaxElements) return Tell(text);
        const auto room = static_cast<std::size_t>(MaxElements) - Reading.Codes.size();
        Reading.TooMany = Reading.TooMany || static_cast<std::size_t>(*count) > room;
        Reading.Codes.insert(Reading.Codes.end(), std::min(room, static_cast<std::size_t>(*count)), code);
    }

    /// The only piece of a line, among what else a table tells of it.
    void ReadRow(std::string_view line) {
        const auto parting =
            std::ranges::find_if(Partings, [&](char c) { return line.find(c) != std::string_view::npos; });
        const std::string_view between = parting == Partings.end() ? "" : std::string_view(&*parting, 1);
        const std::vector<std::string_view> fields = Split(line, between);
        const auto holdsCode = [&](std::string_view field) { return CodesIn(WordsOf(field)) == 1; };
        const auto place = std::ranges::find_if(fields, holdsCode);
        if (place == fields.end()) return Tell(line);
        const bool isTable = between == "\t" || between == "|";
        const std::size_t at = static_cast<std::size_t>(place - fields.begin());
        const bool reads = ReadPiece(line, WordsOf(*place), CountBeside(fields, at));
        for (std::size_t field = 0; field < fields.size() && reads && !isTable; ++field) {
            if (field != at && IsStrange(fields[field])) Tell(fields[field]);
        }
    }

    /// A number of a row's own beside the piece; 1 where there is none; nothing where several may be meant.
    std::optional<int> CountBeside(const std::vector<std::string_view>& fields, std::size_t piece) {
        std::vector<std::size_t> counts;
        for (std::size_t at = 0; at < fields.size(); ++at) {
            if (at != piece && CountIn(fields[at])) counts.push_back(at);
        }
        if (counts.empty()) return 1;
        if (counts.size() == 1) return CountIn(fields[counts.front()]);
        const bool othersAreBehind = counts[1] > piece; // as prices are
        const bool isBeside = counts[0] + 1 == piece || counts[0] == piece + 1;
        return othersAreBehind && isBeside ? CountIn(fields[counts.front()]) : std::nullopt;
    }

    std::optional<int> CountIn(std::string_view field) {
        Words words = WordsOf(field);
        std::erase_if(words, [](const Word& word) { return word.What == Word::Kind::Sign; });
        const bool isCount = words.size() == 1 && words.front().What == Word::Kind::Count;
        return isCount ? std::optional(words.front().Count) : std::nullopt;
    }

    /// Whether a field that is parted by a comma tells neither a number nor, in quotation marks, a name.
    static bool IsStrange(std::string_view field) {
        const bool hasLetters = std::ranges::any_of(field, [](char c) { return IsCapital(Capital(c)); });
        const bool isQuoted = field.starts_with('"') || field.ends_with('"');
        return hasLetters && !isQuoted && !IsDigit(field.front());
    }

    /// Of a text's only piece: those in front of it are told, what is behind it describes it. False where nothing of it
    /// is understood.
    bool ReadPiece(std::string_view text, const Words& words, std::optional<int> beside) {
        const auto code = std::ranges::find_if(words, &Word::IsCode);
        bool isClear = true;
        std::optional<int> count = CountAt(words, static_cast<std::size_t>(code - words.begin()), isClear);
        if (!count && isClear) count = beside;
        if (code->What != Word::Kind::Piece || !count || *count < 1 || *count > MaxElements) {
            Tell(text);
            return false;
        }
        for (auto word = words.begin(); word != code; ++word) {
            if (word->What == Word::Kind::Other) Tell(word->Text);
        }
        Add(text, code->Code, count);
        return true;
    }

    /// How many the words themselves say; it is not clear where they have numbers that may mean something else.
    static std::optional<int> CountAt(const Words& words, std::size_t code, bool& isClear) {
        std::vector<std::size_t> signedOnes, beside, all;
        for (std::size_t at = 0; at < words.size(); ++at) {
            if (words[at].What != Word::Kind::Count) continue;
            all.push_back(at);
            const bool hasSign = words[at].Side != Word::Place::Anywhere ||
                                 (at > code && words[at - 1].What == Word::Kind::Sign) ||
                                 (at < code && words[at + 1].What == Word::Kind::Sign);
            if (hasSign) signedOnes.push_back(at);
            if (at + 1 == code || at == code + 1) beside.push_back(at);
        }
        const std::vector<std::size_t>& meant = signedOnes.empty() ? beside : signedOnes;
        isClear = meant.size() == 1 || all.empty();
        if (meant.size() != 1) return std::nullopt;
        return words[meant.front()].Count;
    }

    void ReadPart(std::string_view part) {
        const Words words = WordsOf(part);
        const std::ptrdiff_t codes = CodesIn(words);
        if (codes == 0) return Tell(part);
        if (codes == 1) {
            ReadPiece(part, words, 1);
        } else {
            ReadSequence(words);
        }
    }

    /// Pieces with nothing but blanks between them: bare numbers stand before them, or behind where the last word is
    /// one.
    void ReadSequence(const Words& words) {
        const bool areBehind = words.front().IsCode() && words.back().What == Word::Kind::Count;
        for (std::size_t at = 0; at < words.size(); ++at) {
            const Word& word = words[at];
            if (word.What == Word::Kind::Other) Tell(word.Text);
            if (word.What == Word::Kind::Count && !IsTaken(words, at, areBehind)) Tell(word.Text);
            if (!word.IsCode()) continue;
            const Word* const count = CountOf(words, at, areBehind);
            const std::string more = count != nullptr && !count->Text.empty() ? count->Text : "";
            if (word.What == Word::Kind::Unknown) {
                Tell(more.empty() ? word.Text : count > &word ? word.Text + " " + more : more + " " + word.Text);
            } else {
                Add(word.Text + (more.empty() ? "" : " " + more), word.Code, count == nullptr ? 1 : count->Count);
            }
        }
    }

    /// Whether a count stands behind its piece.
    static bool IsBehind(const Words& words, std::size_t count, bool areBehind) {
        if (words[count].Side != Word::Place::Anywhere) return words[count].Side == Word::Place::Behind;
        const bool signBehind = count + 1 < words.size() && words[count + 1].What == Word::Kind::Sign;
        const bool signBefore = count > 0 && words[count - 1].What == Word::Kind::Sign;
        return signBefore || (areBehind && !signBehind);
    }

    static std::size_t WithoutSign(const Words& words, std::size_t at, int step) {
        const std::size_t next = at + static_cast<std::size_t>(step);
        return next < words.size() && words[next].What == Word::Kind::Sign ? next + static_cast<std::size_t>(step)
                                                                           : next;
    }

    static bool IsTaken(const Words& words, std::size_t count, bool areBehind) {
        const std::size_t piece = WithoutSign(words, count, IsBehind(words, count, areBehind) ? -1 : 1);
        return piece < words.size() && words[piece].IsCode();
    }

    static const Word* CountOf(const Words& words, std::size_t code, bool areBehind) {
        for (const int step : {-1, 1}) {
            const std::size_t at = WithoutSign(words, code, step);
            const bool isCount = at < words.size() && words[at].What == Word::Kind::Count;
            if (isCount && IsBehind(words, at, areBehind) == (step > 0)) return &words[at];
        }
        return nullptr;
    }

    const Catalogue& catalogue_;
    const Hands hands_;
    int line_ = 0;
};

/// With plain blanks, and DecimalComma in prices ("C160 2,50"), where it parts nothing.
std::string Cleaned(std::string_view text) {
    std::string clean(text);
    for (auto at = clean.find(HardBlank); at != std::string::npos; at = clean.find(HardBlank, at))
        clean.replace(at, HardBlank.size(), " ");
    const auto isDigit = [&](std::size_t at) { return at < clean.size() && IsDigit(clean[at]); };
    for (auto comma = clean.find(','); comma != std::string::npos; comma = clean.find(',', comma + 1)) {
        if (!isDigit(comma + 1) || !isDigit(comma + 2) || isDigit(comma + 3)) continue;
        std::size_t first = comma;
        while (first > 0 && isDigit(first - 1))
            --first;
        const bool stands =
            first > 0 && first < comma && std::string_view(" \t|;").find(clean[first - 1]) != std::string_view::npos;
        if (stands) clean[comma] = DecimalComma;
    }
    return clean;
}

} // namespace

std::string PieceListReading::StrangeText() const {
    constexpr std::size_t most = 8;
    constexpr std::size_t longest = 60; // characters
    const std::size_t count = NotUnderstood.size();
    const std::size_t named = count <= most + 1 ? count : most; // "1 other" would be as long as its name
    std::string text;
    for (std::size_t at = 0; at < named; ++at) {
        const StrangeWords& words = NotUnderstood[at];
        const std::size_t length = CharacterCount(words.Text);
        const bool fits = length <= longest;
        const std::string_view shown = WithoutLastCharacters(words.Text, fits ? 0 : length - longest);
        text += (at == 0 ? "\"" : at + 1 == count ? " and \"" : ", \"") + std::string(shown) + (fits ? "\"" : "…\"");
        if (HasLines) text += " (line " + std::to_string(words.Line) + ")";
    }
    if (named < count) text += " and " + std::to_string(count - named) + " others";
    return text;
}

std::string PieceListReading::HandText() const {
    if (LacksHand.empty()) return {};
    const std::string code = Plain(LacksHand);
    return code + " is " + code + "L to the left and " + code + "R to the right";
}

PieceListReading ReadPieceList(const Catalogue& catalogue, std::string_view text, Hands hands) {
    ListReader reader(catalogue, hands);
    const std::string clean = Cleaned(text);
    const bool hasLineFeeds = clean.find('\n') != std::string::npos;
    int lines = 0; // that hold something
    for (const std::string_view line : Split(clean, hasLineFeeds ? "\n" : "\r")) {
        reader.ReadLine(line);
        lines += line.empty() ? 0 : 1;
    }
    reader.Reading.HasLines = lines > 1;
    return std::move(reader.Reading);
}

} // namespace pistaro
