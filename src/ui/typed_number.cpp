#include "ui/typed_number.h"

#include "text/number_text.h"

#include <QLocale>

namespace pistaro {

std::string PlainNumber(const QString& typed) {
    bool isNumber = false;
    const double value = QLocale::system().toDouble(typed.trimmed(), &isNumber);
    if (isNumber) return NumberText(value);
    // One comma alone is meant as the decimal one wherever the desktop does not take it for something else.
    const bool hasDecimalComma = typed.count(',') == 1 && !typed.contains('.');
    return (hasDecimalComma ? QString(typed).replace(',', '.') : typed).trimmed().toStdString();
}

QString Amount(Cents cents) { return QLocale::system().toString(static_cast<double>(cents) / 100, 'f', 2); }

} // namespace pistaro
