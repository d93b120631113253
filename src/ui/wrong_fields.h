// What was typed into a table's fields and cannot be kept: it stays there, marked, until it is mended or taken back.
#pragma once

#include <QColor>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTreeWidget>

#include <map>
#include <optional>
#include <utility>

namespace pistaro {

/// The frame of a field that holds such a text; to be seen on light and dark grounds.
inline constexpr QRgb WrongColour = qRgb(214, 60, 50);

/// Lines are known by their first column.
class WrongFields {
public:
    explicit WrongFields(QTreeWidget& table);

    /// The text that a field holds though it cannot be kept.
    std::optional<QString> At(const QModelIndex& field) const;
    void Put(const QModelIndex& field, const QString& text) { texts_[PlaceOf(field)] = text; }
    /// Whether there was one.
    bool Drop(const QModelIndex& field) { return texts_.erase(PlaceOf(field)) > 0; }
    bool Drop(const QString& line, int column) { return texts_.erase({line, column}) > 0; }
    void Clear() { texts_.clear(); }

    /// The first of them that is listed; an invalid place where there is none.
    QModelIndex First() const;

    /// Says why, just below a field, or above it where there is no room.
    void Say(const QRect& field, const QString& why);
    void Hush() { note_->hide(); }

private:
    using Place = std::pair<QString, int>;

    static Place PlaceOf(const QModelIndex& field);

    QTreeWidget& table_;
    QLabel* const note_;
    std::map<Place, QString> texts_;
};

/// What makes a field of a table look like one.
void PaintFieldFrame(QPainter& painter, const QRect& place, const QPalette& palette, const QColor& ink, int pixels);

/// Frames the editor of a field in red, or takes the frame away.
void MarkWrong(QLineEdit& editor, bool isWrong);

} // namespace pistaro
