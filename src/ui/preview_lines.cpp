#include "ui/preview_lines.h"

#include "ui/named_controls.h"

#include <QStringList>

#include <cmath>

namespace pistaro {

namespace {

/// As much of a file as a preview shows: whole lines, or a part of a line that is longer than that.
QString FirstLines(const QString& text) {
    constexpr qsizetype most = 4000; // characters
    if (text.size() <= most) return text;
    const qsizetype end = text.lastIndexOf('\n', most - 1) + 1;
    return text.left(end > 0 ? end : most) + "…";
}

/// A line of a table with its lengths and angles to three digits: what is smaller comes of computing.
QString RoundedLine(const QString& line) {
    constexpr int firstNumber = 4; // of the columns
    QStringList fields = line.split(',');
    for (qsizetype field = firstNumber; field < fields.size(); ++field) {
        bool isNumber = false;
        const double value = fields[field].toDouble(&isNumber);
        if (isNumber) fields[field] = QString::number(std::round(value * 1000) / 1000 + 0.0, 'g', 10);
    }
    return fields.join(',');
}

QString Rounded(const QString& table) {
    QStringList lines = QString(table).remove('\r').split('\n');
    for (QString& line : lines)
        line = RoundedLine(line);
    return lines.join('\n');
}

/// Calls `sign` with each character outside of strings, and where it stands, until that gives true.
template <typename Sign>
void ForEachSign(const QString& json, qsizetype from, const Sign& sign) {
    bool inString = false;
    for (qsizetype at = from; at < json.size(); ++at) {
        if (inString && json[at] == '\\') {
            ++at; // the next one ends nothing
        } else if (json[at] == '"') {
            inString = !inString;
        } else if (!inString && sign(json[at], at)) {
            return;
        }
    }
}

bool Opens(QChar sign) { return sign == '{' || sign == '['; }
bool Closes(QChar sign) { return sign == '}' || sign == ']'; }

/// Where the list or object that opens there ends, if it holds no other one: as a place "[0,35,1.57]".
qsizetype EndOfSimple(const QString& json, qsizetype opening) {
    qsizetype end = -1;
    ForEachSign(json, opening + 1, [&](QChar sign, qsizetype at) {
        if (Closes(sign)) end = at;
        return Opens(sign) || Closes(sign);
    });
    return end;
}

/// Each member on a line of its own, but those of simple ones.
QString Indented(const QString& json) {
    constexpr qsizetype indent = 2;
    QString text;
    qsizetype depth = 0;
    qsizetype copied = 0;
    qsizetype simpleEnd = -1;
    const auto breakLine = [&](qsizetype upTo) {
        text += QStringView(json).mid(copied, upTo - copied);
        text += '\n' + QString(indent * depth, ' ');
        copied = upTo;
    };
    ForEachSign(json, 0, [&](QChar sign, qsizetype at) {
        if (at <= simpleEnd) return false;
        if (Opens(sign)) {
            simpleEnd = EndOfSimple(json, at);
            if (simpleEnd >= 0) return false;
            ++depth;
            breakLine(at + 1);
        } else if (Closes(sign)) {
            --depth;
            breakLine(at);
        } else if (sign == ',') {
            breakLine(at + 1);
        }
        return false;
    });
    text += QStringView(json).mid(copied);
    return text;
}

} // namespace

QString PreviewLines(const std::string& bytes, ExportFormat format) {
    const QString text = FirstLines(Shown(bytes));
    if (format == ExportFormat::Csv) return Rounded(text);
    return format == ExportFormat::Json ? Indented(text) : text;
}

} // namespace pistaro
