#include "LayerPanel.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace viewer {

namespace {

enum Column
{
    kName,
    kKey,
};

constexpr int kNumberKeys = 9;

QIcon Swatch(Colour colour)
{
    QPixmap pixmap(28, 28); // drawn large and shown smaller, for screens of high density
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 110), 2));
    painter.setBrush(QColor(GetRValue(colour), GetGValue(colour), GetBValue(colour)));
    painter.drawRoundedRect(QRectF(2, 2, 24, 24), 5, 5);
    return QIcon(pixmap);
}

} // namespace

LayerPanel::LayerPanel(BoardView& boardView, QWidget* parent)
    : QWidget(parent), view(boardView), work(new QComboBox), rows(new QTreeWidget)
{
    work->setToolTip("Drawn on top, the other layers dimmed");
    rows->setColumnCount(2);
    rows->setHeaderHidden(true);
    rows->setRootIsDecorated(false);
    rows->setUniformRowHeights(true);
    rows->setSelectionMode(QAbstractItemView::NoSelection);
    rows->setFocusPolicy(Qt::NoFocus);
    rows->setIconSize(QSize(14, 14));
    rows->header()->setStretchLastSection(false);
    rows->header()->setSectionResizeMode(kName, QHeaderView::Stretch);
    rows->header()->setSectionResizeMode(kKey, QHeaderView::ResizeToContents);

    auto* const showAll = new QPushButton("Show all");
    auto* const hideAll = new QPushButton("Hide all");
    // A click leaves the keyboard to the board; Tab still reaches these.
    for (QWidget* const widget : std::initializer_list<QWidget*>{work, showAll, hideAll})
        widget->setFocusPolicy(Qt::TabFocus);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(showAll);
    buttons->addWidget(hideAll);
    auto* const choice = new QHBoxLayout;
    choice->addWidget(new QLabel("Work layer"));
    choice->addWidget(work, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(choice);
    layout->addWidget(rows, 1);
    layout->addLayout(buttons);

    connect(showAll, &QPushButton::clicked, this, [this] { ShowAll(true); });
    connect(hideAll, &QPushButton::clicked, this, [this] { ShowAll(false); });
    connect(work, &QComboBox::activated, this, [this](int index) { view.SetWorkLayer(index - 1); });
    connect(rows, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        if (!refreshing)
            view.SetLayerVisible(rows->indexOfTopLevelItem(item), item->checkState(kName) == Qt::Checked);
    });
}

void LayerPanel::ShowAll(bool shown)
{
    for (int row = 0; row < view.Layers().Count(); ++row)
        view.SetLayerVisible(row, shown);
}

void LayerPanel::Refresh()
{
    refreshing = true;
    const LayerStates& layers = view.Layers();
    bool same = rows->topLevelItemCount() == layers.Count();
    for (int row = 0; same && row < layers.Count(); ++row)
        same = rows->topLevelItem(row)->text(kName).toStdString() == layers.At(row).name;
    if (!same)
        MakeRows();

    for (int row = 0; row < layers.Count(); ++row) {
        const LayerState layer = layers.At(row);
        QTreeWidgetItem& item = *rows->topLevelItem(row);
        item.setCheckState(kName, layer.visible ? Qt::Checked : Qt::Unchecked);
        if (item.data(kName, Qt::UserRole).toUInt() != layer.colour || item.icon(kName).isNull()) {
            item.setData(kName, Qt::UserRole, layer.colour);
            item.setIcon(kName, Swatch(layer.colour));
        }
        QFont font = rows->font();
        font.setBold(layer.isWork);
        item.setFont(kName, font);
    }
    work->setCurrentIndex(layers.Work() + 1);
    refreshing = false;
}

void LayerPanel::MakeRows()
{
    const LayerStates& layers = view.Layers();
    rows->clear();
    work->clear();
    work->addItem("None");
    for (int row = 0; row < layers.Count(); ++row) {
        const QString name = QString::fromStdString(layers.At(row).name);
        const QString key = row < kNumberKeys ? QString::number(row + 1) : QString();
        auto* const item = new QTreeWidgetItem(rows, {name, key});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setForeground(kKey, rows->palette().brush(QPalette::PlaceholderText));
        item->setToolTip(kKey, "Key that shows or hides the layer");
        work->addItem(name);
    }
}

} // namespace viewer
