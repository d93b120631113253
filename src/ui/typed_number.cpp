#include "ui/typed_number.h"

#include "text/number_text.h"

#include <QLocale>

namespace pistaro {

std::string PlainNumber(const QString& typed) {
    bool isNumber = false;
    const double value = QLocale::system().toDouble(typed.trimmed(), &isNumber);
    return isNumber ? NumberText(value) : typed.trimmed().toStdString();
}

} // namespace pistaro
