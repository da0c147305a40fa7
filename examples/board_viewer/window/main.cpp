// The window of board_viewer, a program of its own: board_viewer becomes this one where only a board is named.

#include "BoardWindow.h"
#include "DisplayProbe.h"

#include <QApplication>

#include <cstdio>
#include <exception>
#include <optional>

/// Exit code 0 when the window was closed; 1 after one line on standard error.
int main(int argc, char** argv)
{
    using namespace viewer;
    try {
        const Options options = ParseOptions(std::vector<std::string>(argv + 1, argv + argc));
        std::optional<DisplayProbe> probe(std::in_place, argc, argv);
        if (!probe->HasDisplay())
            throw std::runtime_error("there is no display for a window; --export writes a picture instead");

        QApplication::setOrganizationName("Kolm");
        QApplication::setApplicationName("board_viewer");
        QApplication::setApplicationDisplayName("Board viewer");
        const QApplication application(argc, argv);
        probe.reset();
        BoardWindow window(options);
        window.show();
        return QApplication::exec();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "board_viewer: %s\n", error.what());
    }
    return 1;
}
