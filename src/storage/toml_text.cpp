#include "storage/toml_text.h"

#include "platform/fault.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr std::string_view Digits = "0123456789";
constexpr std::string_view Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

bool IsOneOf(char sign, std::string_view signs) { return signs.find(sign) != std::string_view::npos; }
bool IsInWord(char sign) { return IsOneOf(sign, Digits) || IsOneOf(sign, Letters) || IsOneOf(sign, "_.+-"); }

/// Goes through a text as the library does, past strings and comments.
class TomlScanner {
public:
    TomlScanner(std::string_view text, const std::string& name) : rest_(text), name_(name) {}

    void Check() {
        bool beginsLine = true;
        bool inWord = false;
        while (!rest_.empty()) {
            const char sign = rest_.front();
            if (sign == '#') {
                Take(std::min(rest_.find('\n'), rest_.size()));
            } else if (IsOneOf(sign, "\"'")) {
                TakeString(sign);
            } else if (!inWord && (IsOneOf(sign, Digits) || IsOneOf(sign, "+-"))) {
                TakeNumber();
            } else {
                if (beginsLine && sign == '[') CheckTableName();
                if (sign == '}' && IsOneOf(last_, "[,")) throw Wrong("a brace stands where a value belongs");
                RequireAscii("stands outside quotation marks");
                CountParts(sign);
                Take(1);
            }
            beginsLine = sign == '\n' || (beginsLine && IsOneOf(sign, " \t"));
            inWord = IsInWord(sign);
            if (!IsOneOf(sign, " \t\r\n#")) last_ = sign;
        }
    }

private:
    void Take(std::size_t count) {
        line_ += static_cast<int>(std::ranges::count(rest_.substr(0, count), '\n'));
        rest_.remove_prefix(count);
    }

    std::size_t LengthOf(std::string_view signs) const {
        return std::min(rest_.find_first_not_of(signs), rest_.size());
    }

    /// A string ends with the quotation mark that it begins with, or with three, which up to two of its own may
    /// precede; and one in a single mark with its line, which the library will tell.
    void TakeString(char mark) {
        constexpr std::size_t three = 3;
        constexpr std::size_t mostAtItsEnd = 5;
        const std::string marks(LengthOf({&mark, 1}) < three ? 1 : three, mark);
        Take(marks.size());
        while (!rest_.empty() && !rest_.starts_with(marks) && (marks.size() == three || rest_.front() != '\n')) {
            if (mark == '"' && rest_.front() == '\\')
                TakeEscape();
            else
                Take(1);
        }
        Take(std::min(LengthOf({&mark, 1}), marks.size() == three ? mostAtItsEnd : 1));
    }

    /// A backslash with what it makes another sign of, or with the blanks and ends of lines that it takes away.
    void TakeEscape() {
        Take(1);
        const std::size_t blanks = LengthOf(" \t\r\n");
        Take(blanks);
        RequireAscii("follows a backslash");
        if (blanks == 0) Take(std::min<std::size_t>(1, rest_.size()));
    }

    /// A number, to whose end the library reads whatever stands in it. Dates are no numbers.
    void TakeNumber() {
        const std::string_view number = rest_.substr(0, std::min(rest_.find_first_of(" \t\v\f\r\n]},#"), rest_.size()));
        char before = 'e';
        for (const char sign : number) {
            if (!IsInWord(sign) || (sign == '-' && !IsOneOf(before, "eE")))
                throw Wrong("what begins as a number is none");
            before = sign;
        }
        Take(number.size());
    }

    void CheckTableName() const {
        std::string_view words = rest_.substr(rest_.starts_with("[[") ? 2 : 1);
        words.remove_prefix(std::min(words.find_first_not_of(" \t"), words.size()));
        const char first = words.empty() ? '[' : words.front();
        if (!IsOneOf(first, Digits) && !IsOneOf(first, Letters) && !IsOneOf(first, "_-\"']"))
            throw Wrong("a table wants a name");
    }

    /// A key of parts is a table in a table in a table, which the library goes through by recursion.
    void CountParts(char sign) {
        constexpr int mostParts = 16;
        if (IsOneOf(sign, "\n=,{["))
            parts_ = 1;
        else if (sign == '.' && ++parts_ > mostParts)
            throw Wrong("a key of more than " + std::to_string(mostParts) + " parts");
    }

    void RequireAscii(const std::string& where) const {
        if (!rest_.empty() && static_cast<unsigned char>(rest_.front()) >= 0x80)
            throw Wrong("a letter outside ASCII " + where);
    }

    Fault Wrong(const std::string& reason) const {
        return BadFileFormat(name_ + ", line " + std::to_string(line_) + ": " + reason);
    }

    std::string_view rest_;
    const std::string& name_;
    int line_ = 1;
    int parts_ = 1;   ///< of the key
    char last_ = ' '; ///< that is neither blank nor of a comment
};

} // namespace

void CheckTomlText(std::string_view text, const std::string& name) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    TomlScanner(text, name).Check();
}

} // namespace pistaro
