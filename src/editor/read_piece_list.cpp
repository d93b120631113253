#include "editor/read_piece_list.h"

#include "editor/list_words.h"
#include "model/design.h"
#include "text/utf8.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace pistaro {

namespace {

using Word = ListWord;
using Words = ListWords;

constexpr std::string_view Partings = "\t|;,"; ///< the first of these that a row has parts its fields
constexpr std::string_view HardBlank = "\xC2\xA0";

class ListReader {
public:
    ListReader(const Catalogue& catalogue, Hands hands) : catalogue_(catalogue), hands_(hands) {}

    void ReadLine(std::string_view line) {
        ++line_;
        const Words words = WordsOf(line);
        NoteMissingHand(words);
        const std::ptrdiff_t codes = CodesIn(words);
        if (codes == 0) return ReadStrangeLine(line);
        if (codes == 1) return ReadRow(line);
        for (const std::string_view part : Split(line, Partings))
            ReadPart(part);
    }

    PieceListReading Reading;

private:
    static std::ptrdiff_t CodesIn(const Words& words) { return std::ranges::count_if(words, &Word::IsCode); }

    Words WordsOf(std::string_view text) const { return WordsOfList(catalogue_, text, hands_); }

    void NoteMissingHand(const Words& words) {
        const auto lacks = std::ranges::find_if(words, [&](const Word& word) {
            return word.What == Word::Kind::Unknown && catalogue_.Find(word.Code + "L") != nullptr;
        });
        if (Reading.LacksHand.empty() && lacks != words.end()) Reading.LacksHand = lacks->Code;
    }

    /// What names no piece. A table's head and the line below it are no part of a list.
    void ReadStrangeLine(std::string_view line) {
        const bool isTable = line.find_first_of("|\t") != std::string_view::npos;
        if (isTable && std::ranges::none_of(line, IsDigit)) return;
        Tell(line);
    }

    void Tell(std::string_view text) {
        std::string words(Trimmed(text));
        if (PlainWord(words).empty()) return;
        std::ranges::replace(words, DecimalComma, ',');
        Reading.NotUnderstood.push_back({std::move(words), line_});
    }

    void Add(std::string_view text, const std::string& code, int count) {
        Reading.HasBeyond = Reading.HasBeyond || count > MaxElements;
        if (count < 1 || count > MaxElements) return Tell(text);
        const auto room = static_cast<std::size_t>(MaxElements) - Reading.Codes.size();
        Reading.TooMany = Reading.TooMany || static_cast<std::size_t>(count) > room;
        Reading.Codes.insert(Reading.Codes.end(), std::min(room, static_cast<std::size_t>(count)), code);
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
        const bool isPiece = code->What == Word::Kind::Piece && count;
        const bool isUnderstood = isPiece && *count >= 1 && *count <= MaxElements;
        for (auto word = words.begin(); word != code && isUnderstood; ++word) {
            if (word->What == Word::Kind::Other) Tell(word->Text);
        }
        if (isPiece)
            Add(text, code->Code, *count);
        else
            Tell(text);
        return isUnderstood;
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
    return LacksHand + " is " + LacksHand + "L to the left and " + LacksHand + "R to the right";
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
