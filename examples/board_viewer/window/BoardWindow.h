/// The viewer's main window.
#pragma once

#include "BoardLoader.h"
#include "BoardWidget.h"
#include "DesktopClipboard.h"
#include "Options.h"

#include <QMainWindow>

class QAction;
class QDockWidget;
class QLabel;
class QMenu;
class QProgressBar;

namespace viewer {

class FindPanel;
class LayerPanel;

/// The board in the middle, layers and search at its side, menus above and a status line below. What the board does is
/// the view's business (BoardView); the window connects it with actions, files and the desktop.
class BoardWindow : public QMainWindow
{
public:
    /// Opens the options' file, if one is named, as soon as the event loop runs; its layers and side are as asked for.
    explicit BoardWindow(const Options& startOptions);

    /// Starts to read the file. The board that is shown stays until the new one is complete.
    void Open(const QString& path);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // The parts of the window; menus and their actions are in BoardWindowMenus.cpp.
    void MakePanels();
    void MakeStatusBar();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeViewMenu();
    void MakeLayerMenu();
    void MakeHelpMenu();
    QAction* AddAction(QMenu* menu, const QString& text, const QList<QKeySequence>& keys,
                       const std::function<void()>& run);
    /// The same for keys that other parts of the window use as well: they count while the board has the keyboard.
    QAction* AddBoardAction(QMenu* menu, const QString& text, const QKeySequence& key,
                            const std::function<void()>& run);
    void FillRecentMenu();
    void ShowKeys();

    void ChooseFile();
    void ShowBoard(BoardSource source);
    /// Shows the layers and the side that the command line asked for, of the first board only.
    void ApplyOptions();
    void ShowProgress(int percent);
    void EndProgress();
    void ShowFailure(const std::string& text);

    void ChooseExport();
    void Export(const QString& path);
    void Copy();
    void BeginFind();
    void EndFind();
    void SetLightScheme(bool light);

    void Refresh(); ///< all texts and check marks, from the view
    /// A passing message in the status line.
    void Say(const QString& text);
    void Log(const std::string& line);

    Options options;
    std::string opening; ///< the file that is being read
    DesktopClipboard clipboard;
    DesktopApp messages{this};
    BoardLoader loader;

    BoardWidget* board; ///< this and all below belong to the window as a parent
    LayerPanel* layers = nullptr;
    FindPanel* find = nullptr;
    QDockWidget* layerDock = nullptr;
    QDockWidget* findDock = nullptr;
    QMenu* recentMenu = nullptr;
    QMenu* contextMenu = nullptr;
    QAction* exportAction = nullptr;
    QAction* copyAction = nullptr;
    QAction* backAction = nullptr;
    QList<QAction*> layerActions;
    QLabel* cursorText = nullptr;
    QLabel* scaleText = nullptr;
    QLabel* pickText = nullptr;
    QProgressBar* progress = nullptr;
    std::string logged;
};

} // namespace viewer
