#include "BoardWindow.h"

#include "BoardArchive.h"
#include "FindPanel.h"
#include "LayerPanel.h"
#include "RecentFiles.h"
#include "ReportText.h"

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QSettings>
#include <QStatusBar>

#include <cstdio>

namespace viewer {

namespace {

constexpr const char* kGeometryKey = "geometry";
constexpr int kMessageTime = 4000; // milliseconds
constexpr const char* kArchiveSuffix = ".kolm";

/// The first local file of what is being dragged; empty when there is none.
QString DraggedFile(const QMimeData& data)
{
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

} // namespace

BoardWindow::BoardWindow(const Options& startOptions)
    : options(startOptions), loader({[this](int percent) { ShowProgress(percent); },
                                     [this](BoardSource source) { ShowBoard(std::move(source)); },
                                     [this](const std::string& text) {
                                         EndProgress();
                                         ShowFailure(text);
                                     }}),
      board(new BoardWidget)
{
    setAcceptDrops(true);
    setWindowTitle(QGuiApplication::applicationDisplayName());
    setCentralWidget(board);
    board->SetHint("Open a board with Ctrl+O, or drop one here");
    board->SetChanged([this] { Refresh(); });
    board->SetContextMenu([this](QPoint place) { contextMenu->popup(place); });
    MakePanels();
    MakeStatusBar();
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu();
    MakeLayerMenu();
    MakeHelpMenu();
    resize(1180, 780);
    restoreGeometry(QSettings().value(kGeometryKey).toByteArray());
    board->setFocus();
    Refresh();
    if (!options.input.empty())
        Open(QFile::decodeName(options.input.c_str()));
}

void BoardWindow::MakePanels()
{
    layers = new LayerPanel(board->View());
    layerDock = new QDockWidget("Layers", this);
    layerDock->setWidget(layers);
    addDockWidget(Qt::RightDockWidgetArea, layerDock);

    find = new FindPanel(board->View());
    find->SetLeave([this] { EndFind(); });
    findDock = new QDockWidget("Find", this);
    findDock->setWidget(find);
    addDockWidget(Qt::RightDockWidgetArea, findDock);
    findDock->hide();
    // Closed by the user, and not hidden together with the window.
    connect(findDock, &QDockWidget::visibilityChanged, this, [this] {
        if (findDock->isHidden())
            find->End();
    });
}

void BoardWindow::MakeStatusBar()
{
    cursorText = new QLabel;
    scaleText = new QLabel;
    pickText = new QLabel;
    progress = new QProgressBar;
    // Wide enough for what they usually say, so that the line does not jump while the cursor moves.
    cursorText->setMinimumWidth(fontMetrics().horizontalAdvance("-0000.0000, -0000.0000 mm    "));
    scaleText->setMinimumWidth(fontMetrics().horizontalAdvance("scale 00000 %    "));
    progress->setMaximumWidth(180);
    progress->setMaximumHeight(fontMetrics().height() + 2);
    progress->hide();
    for (QLabel* label : {cursorText, scaleText, pickText}) {
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(8, 2, 8, 2);
    }
    pickText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long net name must not widen the window
    statusBar()->addWidget(cursorText);
    statusBar()->addWidget(scaleText);
    statusBar()->addWidget(pickText, 1);
    statusBar()->addPermanentWidget(progress);
}

// ---- Files

void BoardWindow::ChooseFile()
{
    auto* const dialog = new QFileDialog(this, "Open a board", QFileInfo(windowFilePath()).absolutePath(),
                                         "Boards (*.kicad_pcb *.kolm);;All files (*)");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) { Open(path); });
    dialog->open();
}

void BoardWindow::Open(const QString& path)
{
    opening = QFile::encodeName(path).toStdString();
    ShowProgress(0);
    loader.Load(opening);
}

void BoardWindow::ShowProgress(int percent)
{
    progress->setValue(percent);
    progress->setFormat("Reading %p %");
    progress->show();
    Log("reading " + opening);
}

void BoardWindow::EndProgress()
{
    progress->hide();
}

/// The shapes are made here, on the window's thread, to which all objects of the library belong.
void BoardWindow::ShowBoard(BoardSource source)
{
    EndProgress();
    const QString path = QFile::decodeName(opening.c_str());
    try {
        board->View().Show(MakeBoardFile(std::move(source)));
    } catch (const std::exception& error) {
        return ShowFailure(error.what());
    }
    setWindowFilePath(path);
    setWindowTitle(QFileInfo(path).fileName() + " - " + QGuiApplication::applicationDisplayName());
    RecentFiles::Add(path);
    find->Refresh();
    ApplyOptions();
}

void BoardWindow::ApplyOptions()
{
    BoardView& view = board->View();
    if (options.mirror)
        view.FlipAbout(view.Middle());
    if (!options.layers.empty())
        layers->ShowAll(false);
    for (const std::string& name : options.layers) {
        const int row = view.Layers().Find(name);
        if (row < 0)
            ShowFailure("unknown layer '" + name + "'");
        view.SetLayerVisible(row, true);
    }
    options.mirror = false;
    options.layers.clear();
}

/// The board that is shown stays as it was. The box does not wait, so that the window may be closed under it.
void BoardWindow::ShowFailure(const std::string& text)
{
    RecentFiles::Remove(QFile::decodeName(opening.c_str()));
    Log("cannot open " + opening);
    auto* const box = new QMessageBox(QMessageBox::Warning, "Cannot open the board",
                                      QString::fromStdString(PlainText(text)), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void BoardWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DraggedFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void BoardWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    Open(DraggedFile(*event->mimeData()));
}

void BoardWindow::closeEvent(QCloseEvent* event)
{
    loader.Cancel();
    QSettings().setValue(kGeometryKey, saveGeometry());
    QMainWindow::closeEvent(event);
}

void BoardWindow::ChooseExport()
{
    const QFileInfo shown(windowFilePath());
    auto* const dialog = new QFileDialog(this, "Export what is shown", shown.absolutePath());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({"Picture, PNG (*.png)", "Picture, JPEG (*.jpg *.jpeg)", "Picture, bitmap (*.bmp)",
                            "Board as shapes (*.kolm)"});
    // What a name without an ending gets, by the filter chosen.
    const auto follow = [dialog, suffixes = QStringList{"png", "jpg", "bmp", "kolm"}](const QString& filter) {
        dialog->setDefaultSuffix(suffixes.value(int(dialog->nameFilters().indexOf(filter)), "png"));
    };
    follow(dialog->selectedNameFilter());
    dialog->selectFile(shown.completeBaseName() + ".png");
    connect(dialog, &QFileDialog::filterSelected, dialog, follow);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) { Export(path); });
    dialog->open();
}

void BoardWindow::Export(const QString& path)
{
    const std::string file = QFile::encodeName(path).toStdString();
    try {
        if (path.endsWith(kArchiveSuffix, Qt::CaseInsensitive))
            StoreArchive(board->View().File().picture, file);
        else if (IsPicturePath(file))
            board->View().Export(file);
        else
            throw std::runtime_error(file + ": the name has to end in .png, .jpg, .bmp or .kolm");
        Say("wrote " + path);
    } catch (const std::exception& error) {
        AfxMessageBox(PlainText(error.what()).c_str(), MB_OK | MB_ICONWARNING);
    }
}

// ---- Edit and view

/// The measurement when there is one, else the picture.
void BoardWindow::Copy()
{
    BoardView& view = board->View();
    const std::string measure = view.MeasureText();
    const bool copied = measure.empty() ? view.CopyPicture() : CopyText(measure);
    if (copied)
        Say(measure.empty() ? "copied the picture" : "copied the measurement");
}

void BoardWindow::BeginFind()
{
    findDock->show();
    findDock->raise();
    find->Begin();
}

void BoardWindow::EndFind()
{
    findDock->hide();
    board->setFocus();
}

void BoardWindow::SetLightScheme(bool light)
{
    board->View().SetScheme(light ? Scheme::Light : Scheme::Dark);
    QSettings().setValue("lightScheme", light);
}

void BoardWindow::Refresh()
{
    BoardView& view = board->View();
    const bool isEmpty = view.File().picture.layers.empty();
    cursorText->setText(isEmpty ? QString() : QString::fromStdString(view.CursorText()));
    scaleText->setText(isEmpty ? QString() : QString::fromStdString(view.ScaleText()));
    pickText->setText(QString::fromStdString(view.PickText()));
    pickText->setToolTip(pickText->text());
    copyAction->setText(view.MeasureText().empty() ? "&Copy picture" : "&Copy measurement");
    backAction->setChecked(view.IsFromBack());
    layers->Refresh();
    for (int i = 0; i < int(layerActions.size()); ++i) {
        const LayerState layer = view.Layers().At(i);
        layerActions[i]->setVisible(i < view.Layers().Count());
        layerActions[i]->setText(QString::fromStdString(layer.name));
        layerActions[i]->setChecked(layer.visible);
    }
    if (!isEmpty && !loader.IsLoading())
        Log(view.StatusText());
}

void BoardWindow::Say(const QString& text)
{
    statusBar()->showMessage(text, kMessageTime);
    Log(text.toStdString());
}

/// One line each time that it says something else than before.
void BoardWindow::Log(const std::string& line)
{
    if (!options.log || line == logged)
        return;
    logged = line;
    std::fprintf(stderr, "%s\n", PlainText(line).c_str());
}

} // namespace viewer
