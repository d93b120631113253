// A field for the N of a scale 1:N.
#pragma once

#include <QDoubleSpinBox>

namespace pistaro {

/// Shows "1:5" and "1:2.5", and takes them typed with or without the "1:".
class ScaleBox : public QDoubleSpinBox {
public:
    ScaleBox(double from, double to, double value) {
        setPrefix(Prefix);
        setAccessibleName("Scale");
        setDecimals(1);
        setRange(from, to);
        setValue(value);
    }

    QString textFromValue(double value) const override {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }

    QValidator::State validate(QString& text, int& cursor) const override {
        const QString twice = QString(Prefix) + Prefix;
        if (text.startsWith(twice)) {
            text.remove(0, prefix().size());
            cursor -= static_cast<int>(prefix().size());
        }
        return QDoubleSpinBox::validate(text, cursor);
    }

private:
    static constexpr const char* Prefix = "1:";
};

} // namespace pistaro
