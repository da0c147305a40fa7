#include "BoardLoader.h"

#include <QMetaObject>

#include <exception>
#include <memory>

namespace viewer {

namespace {

/// Thrown through the reader to end it.
struct Cancelled
{};

} // namespace

BoardLoader::BoardLoader(Reports newReports) : reports(std::move(newReports)) {}

void BoardLoader::Load(const std::string& path)
{
    Cancel();
    cancelled = false;
    loading = true;
    thread = std::thread([this, path, load = current] { Run(path, load); });
}

void BoardLoader::Cancel()
{
    cancelled = true;
    ++current;
    loading = false;
    if (thread.joinable())
        thread.join();
}

/// On the reading thread.
void BoardLoader::Run(const std::string& path, int load)
{
    int told = -1;
    const auto progress = [&](double done) {
        if (cancelled)
            throw Cancelled();
        const int percent = int(done * 100);
        if (percent != told)
            Report(load, [this, percent] { reports.progress(percent); });
        told = percent;
    };
    try {
        // In a shared pointer, since what waits in an event loop is copied.
        const auto source = std::make_shared<BoardSource>(ReadBoardSource(path, progress));
        Report(load, [this, source] {
            Cancel();
            reports.read(std::move(*source));
        });
    } catch (const Cancelled&) {
    } catch (const std::exception& error) {
        Report(load, [this, text = std::string(error.what())] {
            Cancel();
            reports.failed(text);
        });
    }
}

/// Passes a report to the window's thread, where it is dropped unless its load is still the current one.
void BoardLoader::Report(int load, std::function<void()> report)
{
    const auto deliver = [this, load, report = std::move(report)] {
        if (load == current)
            report();
    };
    QMetaObject::invokeMethod(&receiver, deliver, Qt::QueuedConnection);
}

} // namespace viewer
