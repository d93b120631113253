#include "ui/typed_number.h"

#include "text/number_text.h"

#include <QLocale>

namespace pistaro {

std::string PlainNumber(const QString& typed) {
    bool isNumber = false;
    const double value = QLocale::system().toDouble(typed.trimmed(), &isNumber);
    return isNumber ? NumberText(value) : typed.trimmed().toStdString();
}

QString Amount(Cents cents) { return QLocale::system().toString(static_cast<double>(cents) / 100, 'f', 2); }

} // namespace pistaro
