#include "FindPanel.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace viewer {

FindPanel::FindPanel(BoardView& boardView, QWidget* parent)
    : QWidget(parent), view(boardView), pattern(new QLineEdit), list(new QTreeWidget),
      dim(new QCheckBox("Dim the others")), count(new QLabel)
{
    pattern->setPlaceholderText("Reference or net: R1  R*  C##  GND");
    pattern->setClearButtonEnabled(true);
    pattern->setToolTip("* any text, ? a character that is no digit, # a digit; of several words any may match");
    pattern->installEventFilter(this);
    list->setColumnCount(2);
    list->setHeaderLabels({"Name", "Kind"});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    // A click leaves the keyboard to the board; Tab still reaches it.
    dim->setFocusPolicy(Qt::TabFocus);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(pattern);
    layout->addWidget(list, 1);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(dim);
    foot->addStretch();
    foot->addWidget(count);
    layout->addLayout(foot);

    connect(pattern, &QLineEdit::textChanged, this, [this] { Refresh(); });
    connect(list, &QTreeWidget::itemClicked, this, [this] { ShowMarked(false); });
    connect(list, &QTreeWidget::itemActivated, this, [this] { ShowMarked(false); });
    connect(dim, &QCheckBox::toggled, this, [this](bool on) { view.DimOthers(on); });
}

void FindPanel::Begin()
{
    pattern->setFocus(Qt::ShortcutFocusReason);
    pattern->selectAll();
}

void FindPanel::End()
{
    dim->setChecked(false);
}

void FindPanel::Refresh()
{
    const std::vector<FoundItem>& matches = view.Find(pattern->text().toStdString());
    QList<QTreeWidgetItem*> items;
    for (const FoundItem& match : matches) {
        const bool isNet = match.item.kind == NamedItem::Kind::Net;
        auto* const item = new QTreeWidgetItem({QString::fromStdString(match.item.name), isNet ? "net" : "footprint"});
        item->setDisabled(!match.position); // a net that nothing belongs to is nowhere
        items.append(item);
    }
    list->clear();
    list->addTopLevelItems(items);
    if (!items.isEmpty())
        list->setCurrentItem(items.first());
    shown = -1;
    view.DimOthers(dim->isChecked());
    const QString text = matches.size() == 1 ? QString("1 match") : QString("%1 matches").arg(matches.size());
    count->setText(pattern->text().trimmed().isEmpty() ? QString() : text);
}

/// Brings the marked match into view; with `next` the one after it where the marked one is in view already.
void FindPanel::ShowMarked(bool next)
{
    int match = list->indexOfTopLevelItem(list->currentItem());
    if (match < 0)
        return;
    if (next && match == shown)
        match = (match + 1) % list->topLevelItemCount();
    list->setCurrentItem(list->topLevelItem(match));
    view.ShowMatch(match);
    shown = match;
}

/// The pattern's up and down keys walk through the list, so that the hands stay where they are.
bool FindPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == pattern && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            ShowMarked(true);
            return true;
        }
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
            return QCoreApplication::sendEvent(list, event);
    }
    return QWidget::eventFilter(watched, event);
}

void FindPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && leave)
        leave();
    else
        QWidget::keyPressEvent(event);
}

} // namespace viewer
