#include "RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace viewer {

namespace {

constexpr const char* kKey = "recentFiles";

/// In the place that the application's name and its maker's give.
void Store(const QStringList& files)
{
    QSettings().setValue(kKey, files);
}

} // namespace

QStringList RecentFiles::List()
{
    return QSettings().value(kKey).toStringList().mid(0, kMost);
}

void RecentFiles::Add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList files = List();
    files.removeAll(absolute);
    files.prepend(absolute);
    Store(files.mid(0, kMost));
}

void RecentFiles::Remove(const QString& path)
{
    QStringList files = List();
    files.removeAll(QFileInfo(path).absoluteFilePath());
    Store(files);
}

void RecentFiles::Clear()
{
    Store({});
}

} // namespace viewer
