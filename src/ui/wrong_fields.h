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

/// Says why what is in a field cannot be kept. What it covers the mouse reaches all the same.
class FaultNote : public QLabel {
public:
    FaultNote(QWidget& ground, const char* name);

    /// Just below a field of the ground, or above it where there is no room; from the field's left edge on, or up to
    /// its right one.
    void Say(const QRect& field, const QString& why, Qt::Edge edge);

private:
    QWidget& ground_;
};

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

    void Say(const QRect& field, const QString& why) { note_->Say(field, why, Qt::RightEdge); }
    void Hush() { note_->hide(); }

private:
    using Place = std::pair<QString, int>;

    static Place PlaceOf(const QModelIndex& field);

    QTreeWidget& table_;
    FaultNote* const note_;
    std::map<Place, QString> texts_;
};

/// What makes a field of a table look like one.
void PaintFieldFrame(QPainter& painter, const QRect& place, const QPalette& palette, const QColor& ink, int pixels);

/// Frames the editor of a field in red, or takes the frame away.
void MarkWrong(QLineEdit& editor, bool isWrong);

} // namespace pistaro
