/// Reading board files beside the thread of the window.
#pragma once

#include "BoardFile.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace viewer {

/// Reads one file at a time on a thread of its own and reports on the thread that made the loader, from its event loop.
/// A load that was cancelled or replaced reports nothing any more.
class BoardLoader
{
public:
    struct Reports
    {
        std::function<void(int)> progress; ///< per cent
        std::function<void(BoardSource)> read;
        std::function<void(std::string)> failed; ///< what is wrong with the file
    };

    explicit BoardLoader(Reports reports);
    ~BoardLoader() { Cancel(); }
    BoardLoader(const BoardLoader&) = delete;
    BoardLoader& operator=(const BoardLoader&) = delete;

    /// Starts to read, and cancels what is still being read.
    void Load(const std::string& path);
    /// Returns when the thread has ended, which takes it a tenth of a second at most.
    void Cancel();
    bool IsLoading() const { return loading; }

private:
    void Run(const std::string& path, int load);
    void Report(int load, std::function<void()> report);

    Reports reports;
    QObject receiver; ///< whatever is still on its way to it is dropped with it
    std::thread thread;
    std::atomic<bool> cancelled{false};
    int current = 0; ///< number of the load that may report
    bool loading = false;
};

} // namespace viewer
