/// Searching the board by name.
#pragma once

#include "view/BoardView.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTreeWidget;

namespace viewer {

/// A pattern, the references and nets that match it as one types, and whether all else is dimmed. Enter brings the
/// marked match into view and picks it; Enter again goes on to the next.
class FindPanel : public QWidget
{
public:
    /// The view is the caller's and has to outlive the panel.
    FindPanel(BoardView& boardView, QWidget* parent = nullptr);

    void Begin();   ///< the pattern has the keyboard from now on
    void Refresh(); ///< searches again, for instance in another board
    void End();     ///< dims nothing any more
    /// Called for Escape.
    void SetLeave(std::function<void()> function) { leave = std::move(function); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowMarked(bool next);

    BoardView& view;
    QLineEdit* pattern;
    QTreeWidget* list;
    QCheckBox* dim;
    QLabel* count;
    std::function<void()> leave;
    int shown = -1; ///< the match that was brought into view last
};

} // namespace viewer
