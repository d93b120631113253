// All steps, beside the drawing while one works: a click on one goes to the state that it led to.
#pragma once

#include "commands/session.h"

#include <QAbstractListModel>
#include <QDockWidget>
#include <QListView>

namespace pistaro {

/// One line a state, the oldest first.
class HistoryLines : public QAbstractListModel {
public:
    HistoryLines(const Session& session, QObject* parent) : QAbstractListModel(parent), session_(session) {}

    int rowCount(const QModelIndex& parent = {}) const override;

    /// The caption of the step that led to the state; the present one bold, those that were undone grey.
    QVariant data(const QModelIndex& index, int role) const override;

    /// To be called when the history changed.
    void Refresh();

private:
    const Session& session_;
    int lines_ = 1; ///< as the views know
};

class HistoryDock : public QDockWidget {
public:
    explicit HistoryDock(Session& session);

    /// To be called when something has changed; many changes at once have the list refilled once, when they are over.
    void Refresh();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowSteps();
    void GoTo(const QModelIndex& line);

    Session& session_;
    HistoryLines* const lines_;
    QListView* const lstHistory_;
    bool waiting_ = false; ///< the list is to be refilled
};

} // namespace pistaro
