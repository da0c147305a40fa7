/// The menus of the viewer's main window.
#include "BoardWindow.h"
#include "FindPanel.h"
#include "LayerPanel.h"
#include "RecentFiles.h"

#include <QAction>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>

namespace viewer {

namespace {

constexpr int kNumberKeys = 9;

const char* const kKeys = R"(<table cellspacing='0' cellpadding='3'>
<tr><td><b>Wheel</b></td><td>nearer and farther, about the cursor</td></tr>
<tr><td><b>Right or middle drag, arrow keys</b></td><td>move the board</td></tr>
<tr><td><b>Click</b></td><td>picks what lies there; again: the next of what lies stacked there</td></tr>
<tr><td><b>Shift+click</b></td><td>picks a second element and measures the clearance</td></tr>
<tr><td><b>Esc</b></td><td>nothing picked and nothing measured</td></tr>
<tr><td><b>F</b></td><td>the whole board</td></tr>
<tr><td><b>M</b></td><td>the other side; the point under the cursor stays</td></tr>
<tr><td><b>+ and &minus;</b></td><td>nearer and farther</td></tr>
<tr><td><b>1 to 9</b></td><td>show or hide a layer</td></tr>
<tr><td><b>Ctrl+F</b></td><td>find references and nets; Enter shows a match and then the next</td></tr>
<tr><td><b>Ctrl+C</b></td><td>copies the measurement, or else the picture</td></tr>
</table>)";

} // namespace

QAction* BoardWindow::AddAction(QMenu* menu, const QString& text, const QList<QKeySequence>& keys,
                                const std::function<void()>& run)
{
    QAction* const action = menu->addAction(text);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, run);
    return action;
}

QAction* BoardWindow::AddBoardAction(QMenu* menu, const QString& text, const QKeySequence& key,
                                     const std::function<void()>& run)
{
    QAction* const action = AddAction(menu, text, {key}, run);
    action->setShortcutContext(Qt::WidgetShortcut);
    board->addAction(action);
    return action;
}

void BoardWindow::MakeFileMenu()
{
    QMenu* const menu = menuBar()->addMenu("&File");
    AddAction(menu, "&Open...", {QKeySequence::Open}, [this] { ChooseFile(); });
    recentMenu = menu->addMenu("Open &recent");
    connect(recentMenu, &QMenu::aboutToShow, this, [this] { FillRecentMenu(); });
    exportAction = AddAction(menu, "&Export...", {QKeySequence::Save}, [this] { ChooseExport(); });
    menu->addSeparator();
    AddAction(menu, "&Quit", {QKeySequence("Ctrl+Q")}, [this] { close(); });
}

void BoardWindow::FillRecentMenu()
{
    recentMenu->clear();
    for (const QString& path : RecentFiles::List()) {
        // An ampersand would underline the letter after it.
        QString text = QFileInfo(path).fileName();
        QAction* const action = AddAction(recentMenu, text.replace('&', "&&"), {}, [this, path] { Open(path); });
        action->setToolTip(path);
    }
    recentMenu->setToolTipsVisible(true);
    recentMenu->addSeparator();
    AddAction(recentMenu, "&Clear the list", {}, [] {
        RecentFiles::Clear();
    })->setEnabled(!RecentFiles::List().isEmpty());
}

void BoardWindow::MakeEditMenu()
{
    QMenu* const menu = menuBar()->addMenu("&Edit");
    copyAction = AddAction(menu, "&Copy picture", {QKeySequence::Copy}, [this] { Copy(); });
    AddAction(menu, "&Find...", {QKeySequence::Find}, [this] { BeginFind(); });
    menu->addSeparator();
    AddBoardAction(menu, "Pick &nothing", Qt::Key_Escape, [this] { board->View().ClearPick(); });
}

void BoardWindow::MakeViewMenu()
{
    BoardView& view = board->View();
    QMenu* const menu = menuBar()->addMenu("&View");
    QAction* const fit = AddAction(menu, "&Fit the board", {Qt::Key_F}, [&view] { view.Fit(); });
    backAction = AddAction(menu, "From the &back", {Qt::Key_M}, [this, &view] { view.FlipAbout(board->Cursor()); });
    backAction->setCheckable(true);
    AddAction(menu, "Zoom &in", {Qt::Key_Plus, Qt::Key_Equal}, [this, &view] { view.ZoomIn(board->Cursor()); });
    AddAction(menu, "Zoom &out", {Qt::Key_Minus}, [this, &view] { view.ZoomOut(board->Cursor()); });
    QMenu* const move = menu->addMenu("&Move");
    const std::tuple<const char*, Qt::Key, int, int> ways[] = {{"&Left", Qt::Key_Left, 1, 0},
                                                               {"&Right", Qt::Key_Right, -1, 0},
                                                               {"&Up", Qt::Key_Up, 0, 1},
                                                               {"&Down", Qt::Key_Down, 0, -1}};
    for (const auto& [text, key, x, y] : ways) {
        // What is seen moves over the board: the picture moves the other way, an eighth of the view.
        AddBoardAction(move, text, key,
                       [&view, x = x, y = y] { view.PanBy(x * view.Width() / 8, y * view.Height() / 8); });
    }
    menu->addSeparator();
    QAction* const light = menu->addAction("&Light colours");
    light->setCheckable(true);
    connect(light, &QAction::toggled, this, [this](bool on) { SetLightScheme(on); });
    light->setChecked(QSettings().value("lightScheme").toBool());
    menu->addSeparator();
    layerDock->toggleViewAction()->setText("Layer l&ist");
    findDock->toggleViewAction()->setText("Fin&d panel");
    menu->addActions({layerDock->toggleViewAction(), findDock->toggleViewAction()});

    contextMenu = new QMenu(this);
    contextMenu->addActions({fit, backAction});
    contextMenu->addSeparator();
    contextMenu->addActions({copyAction, exportAction});
    contextMenu->addSeparator();
}

void BoardWindow::MakeLayerMenu()
{
    QMenu* const menu = menuBar()->addMenu("&Layers");
    AddAction(menu, "&Show all", {}, [this] { layers->ShowAll(true); });
    AddAction(menu, "&Hide all", {}, [this] { layers->ShowAll(false); });
    menu->addSeparator();
    for (int number = 1; number <= kNumberKeys; ++number) {
        QAction* const action = AddAction(menu, "", {QKeySequence(Qt::Key_0 + number)},
                                          [this, number] { board->View().ToggleLayer(number); });
        action->setCheckable(true);
        layerActions.append(action);
    }
    contextMenu->addMenu(menu);
    contextMenu->addAction(layerDock->toggleViewAction());
}

void BoardWindow::MakeHelpMenu()
{
    QMenu* const menu = menuBar()->addMenu("&Help");
    AddAction(menu, "&Keys and mouse", {QKeySequence::HelpContents}, [this] { ShowKeys(); });
}

void BoardWindow::ShowKeys()
{
    auto* const box = new QMessageBox(QMessageBox::NoIcon, "Keys and mouse", kKeys, QMessageBox::Close, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace viewer
