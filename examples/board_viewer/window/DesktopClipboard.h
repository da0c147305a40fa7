/// The library's clipboard and messages on the desktop.
#pragma once

#include <afxwin.h>

#include <string>

class QWidget;

namespace viewer {

/// Puts what the library's clipboard is given on the desktop's, as long as the object lives. One at a time.
class DesktopClipboard
{
public:
    DesktopClipboard();
    ~DesktopClipboard();
    DesktopClipboard(const DesktopClipboard&) = delete;
    DesktopClipboard& operator=(const DesktopClipboard&) = delete;
};

/// Puts a text on the library's clipboard. False when the clipboard refuses.
bool CopyText(const std::string& text);

/// The application object of the library: its messages become message boxes over the window.
class DesktopApp : public CWinApp
{
public:
    explicit DesktopApp(QWidget* messageParent) : parent(messageParent) {}
    int DoMessageBox(LPCSTR text, UINT type, UINT helpContext) override;

private:
    QWidget* parent;
};

} // namespace viewer
