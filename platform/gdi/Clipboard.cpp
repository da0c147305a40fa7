/// The clipboard of the process.
#include "gdi/MemoryWindows.h"

#include "base/winkernel.h"
#include "gdi/DeviceContext.h"

#include <algorithm>
#include <vector>

namespace gdi {
namespace {

struct Entry
{
    UINT format;
    HANDLE data;
};

struct Clipboard
{
    bool open = false;
    bool changed = false; ///< since it was opened
    HWND holder = nullptr;
    std::vector<Entry> entries;
    ClipboardListener listener = nullptr;
    void* context = nullptr;
};

/// Never torn down: what lies on it belongs to the process.
Clipboard& TheClipboard()
{
    static Clipboard* const clipboard = new Clipboard;
    return *clipboard;
}

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
    std::vector<Entry>& entries = TheClipboard().entries;
    const auto found =
        std::find_if(entries.begin(), entries.end(), [=](const Entry& entry) { return entry.format == format; });
    return found == entries.end() ? nullptr : &*found;
}

/// Bitmaps have to be free of device contexts; other data comes in global memory.
bool IsAcceptable(UINT format, HANDLE data)
{
    if (format == CF_BITMAP) {
        const Bitmap* const bitmap = tables.bitmaps.Find(data);
        return bitmap != nullptr && bitmap->references == 0 && !bitmap->stock;
    }
    return data != nullptr && GlobalLock(data) != nullptr && (GlobalUnlock(data), true);
}

} // namespace

void CloseClipboardOf(HWND window)
{
    if (TheClipboard().open && TheClipboard().holder == window) {
        CloseClipboard();
    }
}

} // namespace gdi

using namespace gdi;

BOOL OpenClipboard(HWND window)
{
    Clipboard& clipboard = TheClipboard();
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
    Clipboard& clipboard = TheClipboard();
    if (!clipboard.open) {
        return FALSE;
    }
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
    Clipboard& clipboard = TheClipboard();
    if (!clipboard.open) {
        return FALSE;
    }
    for (const Entry& entry : clipboard.entries) {
        FreeEntry(entry);
    }
    clipboard.entries.clear();
    clipboard.changed = true;
    return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data)
{
    Clipboard& clipboard = TheClipboard();
    if (!clipboard.open || !IsAcceptable(format, data)) {
        return nullptr;
    }
    if (Entry* const entry = FindEntry(format)) {
        if (entry->data != data) {
            FreeEntry(*entry);
            entry->data = data;
        }
    } else if (!WithMemory([&] {
                   clipboard.entries.push_back({format, data});
                   return TRUE;
               }))
    {
        return nullptr;
    }
    clipboard.changed = true;
    return data;
}

HANDLE GetClipboardData(UINT format)
{
    const Entry* const entry = TheClipboard().open ? FindEntry(format) : nullptr;
    return entry != nullptr && IsAcceptable(format, entry->data) ? entry->data : nullptr;
}

BOOL IsClipboardFormatAvailable(UINT format)
{
    return FindEntry(format) != nullptr;
}

void GdiSetClipboardListener(ClipboardListener listener, void* context)
{
    TheClipboard().listener = listener;
    TheClipboard().context = context;
}
