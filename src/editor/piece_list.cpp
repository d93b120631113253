#include "editor/piece_list.h"

#include "platform/fault.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace pistaro {

namespace {

constexpr std::string_view Times = "×";

char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// The list in capital letters, with "X" for each sign of multiplication.
std::string Plain(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const bool sign = text.starts_with(Times);
        const char c = sign || text.front() == '*' ? 'X' : Capital(text.front());
        text.remove_prefix(sign ? Times.size() : 1);
        plain += c;
    }
    return plain;
}

std::vector<std::string> Words(std::string_view text) {
    constexpr std::string_view partings = ",; \t\r\n";
    std::vector<std::string> words;
    std::string word;
    for (const char c : Plain(text) + '\n') {
        if (partings.find(c) == std::string_view::npos) {
            word += c;
        } else if (!word.empty()) {
            words.push_back(std::exchange(word, {}));
        }
    }
    return words;
}

/// A whole number with or without an "X" at one of its ends; nothing for any other word.
std::optional<int> CountIn(std::string_view word) {
    if (word.starts_with('X')) {
        word.remove_prefix(1);
    } else if (word.ends_with('X')) {
        word.remove_suffix(1);
    }
    int count = 0;
    const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), count);
    if (error != std::errc() || stop != word.data() + word.size()) return std::nullopt;
    return count;
}

/// Of these words, each of which is told once: `"C151", "X1" and 7 others are no pieces`, with the hands that the first
/// of them lacks.
Fault NoPieces(const Catalogue& catalogue, const std::vector<std::string>& words) {
    constexpr std::size_t most = 8;
    const bool one = words.size() == 1;
    const std::size_t named = words.size() <= most + 1 ? words.size() : most; // "1 other" would be as long as its name
    std::string text;
    for (std::size_t at = 0; at < named; ++at) {
        const bool last = at + 1 == words.size();
        text += (at == 0 ? "\"" : last ? " and \"" : ", \"") + words[at] + '"';
    }
    if (named < words.size()) text += " and " + std::to_string(words.size() - named) + " others";
    text += one ? " is no piece" : " are no pieces";
    const auto hands =
        std::ranges::find_if(words, [&](const std::string& word) { return catalogue.Find(word + "L") != nullptr; });
    if (hands != words.end())
        text += "; " + (one ? "it" : *hands) + " is " + *hands + "L to the left and " + *hands + "R to the right";
    return TypeMismatch(text);
}

/// Reads the words one by one.
class ListReader {
public:
    ListReader(const Catalogue& catalogue, bool takesProducts) : catalogue_(catalogue), takesProducts_(takesProducts) {}

    void Read(const std::string& word) {
        if (word == "X") {
            repeats_ = next_ == 0; // between a number and its code the sign tells nothing new
            return;
        }
        const std::optional<int> count = CountIn(word);
        if (!count) {
            AddCode(word, std::max(1, std::exchange(next_, 0)));
        } else if (*count < 1 || *count > MaxElements) {
            throw Overflow("\"" + word + "\" is no number of pieces");
        } else if (repeats_ || word.starts_with('X')) {
            if (codes_.empty()) throw TypeMismatch("\"" + word + "\" stands behind no piece");
            Add(std::string(codes_.back()), *count - 1);
        } else {
            next_ = *count;
        }
        repeats_ = false;
    }

    std::vector<std::string> Codes() const {
        if (!unknown_.empty()) throw NoPieces(catalogue_, unknown_);
        if (next_ > 0 || repeats_) throw TypeMismatch("a number of pieces stands before no piece");
        if (codes_.empty()) throw TypeMismatch("there is no list of pieces such as \"C160 x3, C151L\"");
        return codes_;
    }

private:
    /// What is no piece is kept, to be told with all others of its kind.
    void AddCode(const std::string& word, int count) {
        const bool isPiece = catalogue_.Find(word) != nullptr;
        const bool isProduct = !isPiece && takesProducts_ && catalogue_.Find(word + "L") != nullptr;
        if (!isPiece && !isProduct && std::ranges::find(unknown_, word) == unknown_.end()) unknown_.push_back(word);
        Add(isProduct ? word + "L" : word, count);
    }

    void Add(const std::string& code, int count) {
        const bool fits = static_cast<int>(codes_.size()) + count <= MaxElements;
        if (!fits && !unknown_.empty()) return; // which is told at the end
        if (!fits) throw SubscriptOutOfRange("a track holds at most " + std::to_string(MaxElements) + " pieces");
        codes_.insert(codes_.end(), static_cast<std::size_t>(count), code);
    }

    const Catalogue& catalogue_;
    const bool takesProducts_; ///< codes without their hand, too
    std::vector<std::string> codes_;
    std::vector<std::string> unknown_; ///< words that are no pieces, each once
    int next_ = 0;                     ///< how many of the code that comes, 0 when no number stands before it
    bool repeats_ = false;             ///< a sign stands behind the last code
};

std::vector<std::string> CodesIn(const Catalogue& catalogue, std::string_view text, bool takesProducts) {
    ListReader reader(catalogue, takesProducts);
    for (const std::string& word : Words(text))
        reader.Read(word);
    return reader.Codes();
}

} // namespace

std::string PieceListText(const std::vector<std::string>& codes) {
    std::string text;
    for (auto at = codes.begin(); at != codes.end();) {
        const auto next = std::find_if(at, codes.end(), [&](const std::string& code) { return code != *at; });
        if (!text.empty()) text += ", ";
        text += *at;
        if (next - at > 1) text += " x" + std::to_string(next - at);
        at = next;
    }
    return text;
}

std::vector<std::string> ParsePieceList(const Catalogue& catalogue, std::string_view text) {
    return CodesIn(catalogue, text, false);
}

std::map<int, int> ParseProductList(const Catalogue& catalogue, std::string_view text) {
    std::map<int, int> counts;
    for (const std::string& code : CodesIn(catalogue, text, true))
        ++counts[catalogue.FindHeadRow(ProductCode(code))];
    return counts;
}

bool NamesPiece(const Catalogue& catalogue, std::string_view text) {
    return std::ranges::any_of(Words(text), [&](const std::string& word) { return catalogue.Find(word) != nullptr; });
}

void AppendPieces(Design& design, EditState& edit, const std::vector<std::string>& codes) {
    Track& track = *EditedTrack(design.Circuit, edit);
    if (track.ElementCodes.size() + codes.size() > static_cast<std::size_t>(MaxElements))
        throw SubscriptOutOfRange("a track holds at most " + std::to_string(MaxElements) + " pieces");
    track.ElementCodes.insert(track.ElementCodes.end(), codes.begin(), codes.end());
    edit.Select(track.ElementLastIndex());
    edit.DataChanged = true;
}

} // namespace pistaro
