#include "ui/choice_list.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QTimer>

namespace pistaro {

ChoiceList::ChoiceList(QWidget* parent) : QComboBox(parent) {
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
    connect(this, &QComboBox::highlighted, this, [this](int row) {
        if (byKeys_) setCurrentIndex(row);
    });
}

void ChoiceList::showPopup() {
    before_ = currentIndex();
    byKeys_ = false;
    QComboBox::showPopup();
}

bool ChoiceList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) byKeys_ = false;
    if (event->type() != QEvent::KeyPress || watched != view()) return QComboBox::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.modifiers() & Qt::AltModifier && PressButton(key.key())) return true;
    byKeys_ = key.key() != Qt::Key_Escape;
    if (!byKeys_) setCurrentIndex(before_);
    return QComboBox::eventFilter(watched, event);
}

bool ChoiceList::PressButton(int key) {
    const QKeySequence letter(static_cast<int>(Qt::ALT) | key);
    for (QAbstractButton* const button : window()->findChildren<QAbstractButton*>()) {
        if (button->shortcut() != letter || !button->isVisible()) continue;
        hidePopup();
        QTimer::singleShot(0, button, &QAbstractButton::click); // with the list gone, as the user sees it
        return true;
    }
    return false;
}

} // namespace pistaro
