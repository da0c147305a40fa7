/// The clipboard of the process.
#include "gdi/MemoryWindows.h"

#include "base/winkernel.h"
#include "gdi/DeviceContext.h"

#include <algorithm>

namespace gdi {
namespace {

struct Entry
{
    UINT format;
    HANDLE data;
};

/// More formats than any host offers. Room that is always there keeps closing and destroying windows free of failures.
constexpr int kFormats = 16;

struct Clipboard
{
    bool open;
    bool changed; ///< since it was opened
    HWND holder;
    Entry entries[kFormats];
    int count;
    ClipboardListener listener;
    void* context;
};

/// Never torn down: what lies on it belongs to the process.
Clipboard clipboard;

void FreeEntry(const Entry& entry)
{
    if (entry.format == CF_BITMAP) {
        DeleteObject(entry.data);
    } else {
        GlobalFree(entry.data);
    }
}

Entry* FindEntry(UINT format)
{
    Entry* const end = clipboard.entries + clipboard.count;
    Entry* const found =
        std::find_if(clipboard.entries, end, [=](const Entry& entry) { return entry.format == format; });
    return found == end ? nullptr : found;
}

/// A live bitmap, or a block of global memory for every other format.
bool IsAlive(UINT format, HANDLE data)
{
    if (format == CF_BITMAP) {
        return tables.bitmaps.Find(data) != nullptr;
    }
    const bool alive = data != nullptr && GlobalLock(data) != nullptr;
    if (alive) {
        GlobalUnlock(data);
    }
    return alive;
}

/// Bitmaps have to be free of device contexts to change hands.
bool IsAcceptable(UINT format, HANDLE data)
{
    const Bitmap* const bitmap = format == CF_BITMAP ? tables.bitmaps.Find(data) : nullptr;
    return IsAlive(format, data) && (bitmap == nullptr || (bitmap->references == 0 && !bitmap->stock));
}

} // namespace

void CloseClipboardOf(HWND window)
{
    if (clipboard.open && clipboard.holder == window) {
        CloseClipboard();
    }
}

} // namespace gdi

using namespace gdi;

BOOL OpenClipboard(HWND window)
{
    const bool again = clipboard.open && window != nullptr && clipboard.holder == window;
    if ((window != nullptr && !IsWindow(window)) || (clipboard.open && !again)) {
        return FALSE;
    }
    clipboard.open = true;
    clipboard.holder = window;
    return TRUE;
}

BOOL CloseClipboard()
{
    if (!clipboard.open) {
        return FALSE;
    }
    // Closed before anybody is told: the listener opens it again to read.
    const bool tell = clipboard.changed && clipboard.listener != nullptr;
    clipboard.open = clipboard.changed = false;
    clipboard.holder = nullptr;
    if (tell) {
        clipboard.listener(clipboard.context);
    }
    return TRUE;
}

BOOL EmptyClipboard()
{
    if (!clipboard.open) {
        return FALSE;
    }
    std::for_each(clipboard.entries, clipboard.entries + clipboard.count, FreeEntry);
    clipboard.count = 0;
    clipboard.changed = true;
    return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data)
{
    if (!clipboard.open || !IsAcceptable(format, data)) {
        return nullptr;
    }
    if (Entry* const entry = FindEntry(format)) {
        if (entry->data != data) { // the same block handed over again must not be freed
            FreeEntry(*entry);
            entry->data = data;
        }
    } else if (clipboard.count < kFormats) {
        clipboard.entries[clipboard.count++] = {format, data};
    } else {
        return nullptr;
    }
    clipboard.changed = true;
    return data;
}

HANDLE GetClipboardData(UINT format)
{
    const Entry* const entry = clipboard.open ? FindEntry(format) : nullptr;
    // A host may have freed by mistake what it had handed over.
    return entry != nullptr && IsAlive(format, entry->data) ? entry->data : nullptr;
}

BOOL IsClipboardFormatAvailable(UINT format)
{
    return FindEntry(format) != nullptr;
}

void GdiSetClipboardListener(ClipboardListener listener, void* context)
{
    clipboard.listener = listener;
    clipboard.context = context;
}
