/// The files opened last, kept in the user's settings.
#pragma once

#include <QString>
#include <QStringList>

namespace viewer {

class RecentFiles
{
public:
    static constexpr int kMost = 10;

    static QStringList List(); ///< absolute paths, the latest first
    static void Add(const QString& path);
    static void Remove(const QString& path);
    static void Clear();
};

} // namespace viewer
