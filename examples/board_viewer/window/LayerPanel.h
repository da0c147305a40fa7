/// The list of layers beside the board.
#pragma once

#include "view/BoardView.h"

#include <QWidget>

class QComboBox;
class QTreeWidget;

namespace viewer {

/// One row a layer: its colour, its name, whether it is shown, and the key that switches it; above them the choice of
/// the layer that is worked on. Shows what the view says and changes nothing by itself.
class LayerPanel : public QWidget
{
public:
    /// The view is the caller's and has to outlive the panel.
    LayerPanel(BoardView& boardView, QWidget* parent = nullptr);

    void Refresh(); ///< after the board, a layer's state or the scheme changed
    /// Whether each row is shown.
    void ShowAll(bool shown);

private:
    void MakeRows();

    BoardView& view;
    QComboBox* work;
    QTreeWidget* rows;
    bool refreshing = false; ///< what changes then was not the user's doing
};

} // namespace viewer
