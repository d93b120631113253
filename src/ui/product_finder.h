// Finding products in a list of them, by some of a code or a name.
#pragma once

#include <QLineEdit>
#include <QTreeWidget>

#include <functional>

namespace pistaro {

/// The line to type into. Enter and Down in it are about the product that is found, and press no button.
class ProductFinder : public QLineEdit {
public:
    explicit ProductFinder(const char* name);

    std::function<void()> GoesOn; ///< called for these keys

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// What is said where nothing is found.
inline constexpr const char* NoProductFound = "No product matches.";

/// Whether the code, in the first column, or the name of a line's product holds the text; hyphens count
/// as spaces.
bool HoldsText(const QTreeWidgetItem& line, int nameColumn, const QString& text);

/// The first line that is not hidden, or null.
QTreeWidgetItem* FirstListed(const QTreeWidget& list);

/// Writes a text where lines would stand.
void PaintInstead(QTreeWidget& list, const QString& text);

} // namespace pistaro
