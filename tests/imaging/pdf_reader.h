// Reads of a PDF what tests ask: its pages' lines, in centimetres of paper from the lower left corner, as its own
// operators say.
#pragma once

#include <QByteArray>

#include <array>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace pistaro {

struct PdfLine {
    double FromX, FromY, ToX, ToY;

    double Length() const { return std::hypot(ToX - FromX, ToY - FromY); }
};

struct PdfPage {
    std::vector<PdfLine> Lines;
    int Texts = 0;
};

class PdfContentReader {
public:
    PdfPage Read(const std::string& content) {
        std::istringstream words(content);
        std::vector<double> numbers;
        for (std::string word; words >> word;) {
            char* end = nullptr;
            const double number = std::strtod(word.c_str(), &end);
            if (*end == '\0') {
                numbers.push_back(number);
            } else {
                Operate(word, numbers);
                numbers.clear();
            }
        }
        return page_;
    }

private:
    using Matrix = std::array<double, 6>;

    void Operate(const std::string& word, const std::vector<double>& n) {
        if (word == "q") stack_.push_back(matrix_);
        if (word == "Q" && !stack_.empty()) {
            matrix_ = stack_.back();
            stack_.pop_back();
        }
        if (word == "cm") Concatenate({n[0], n[1], n[2], n[3], n[4], n[5]});
        if (word == "m") at_ = Placed(n[0], n[1]);
        if (word == "c") at_ = Placed(n[4], n[5]);
        if (word == "BT") ++page_.Texts;
        if (word == "l") {
            const auto to = Placed(n[0], n[1]);
            path_.push_back({at_[0], at_[1], to[0], to[1]});
            at_ = to;
        }
        if (word == "S") page_.Lines.insert(page_.Lines.end(), path_.begin(), path_.end());
        if (word == "S" || word == "n" || word == "f" || word == "B") path_.clear();
    }

    void Concatenate(const Matrix& m) {
        const Matrix o = matrix_;
        matrix_ = {m[0] * o[0] + m[1] * o[2], m[0] * o[1] + m[1] * o[3],        m[2] * o[0] + m[3] * o[2],
                   m[2] * o[1] + m[3] * o[3], m[4] * o[0] + m[5] * o[2] + o[4], m[4] * o[1] + m[5] * o[3] + o[5]};
    }

    std::array<double, 2> Placed(double x, double y) const {
        constexpr double cmPerPoint = 2.54 / 72;
        return {(x * matrix_[0] + y * matrix_[2] + matrix_[4]) * cmPerPoint,
                (x * matrix_[1] + y * matrix_[3] + matrix_[5]) * cmPerPoint};
    }

    PdfPage page_;
    std::vector<PdfLine> path_;
    Matrix matrix_{1, 0, 0, 1, 0, 0};
    std::vector<Matrix> stack_;
    std::array<double, 2> at_{};
};

/// The pages of a PDF in the order of their contents in it.
inline std::vector<PdfPage> PagesOf(const std::string& pdf) {
    std::vector<PdfPage> pages;
    for (std::size_t at = pdf.find("stream\n"); at != std::string::npos; at = pdf.find("\nstream\n", at)) {
        at = pdf.find('\n', at + 1) + 1;
        const std::size_t end = pdf.find("endstream", at);
        QByteArray packed("\0\0\1\0", 4); // the length that the unpacker expects at its front
        packed.append(pdf.data() + at, static_cast<qsizetype>(end - at));
        const std::string content = qUncompress(packed).toStdString();
        if (content.find(" cm\n") != std::string::npos) pages.push_back(PdfContentReader().Read(content));
    }
    return pages;
}

} // namespace pistaro
