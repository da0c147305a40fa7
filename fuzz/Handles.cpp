/// Sequences of operations on handles: fresh, stale, deleted twice, of the wrong kind, selected elsewhere, made up. A
/// model of who is alive and who is selected where foretells every answer and the number of objects.
#include "Fuzz.h"

#include <array>
#include <vector>

using fuzz::Require;

namespace {

enum Kind
{
    kPen,
    kBrush,
    kFont,
    kBitmap,
    kPalette,
    kKinds
};
constexpr int kNone = -1;

struct Object
{
    Kind kind;
    HGDIOBJ handle;
    bool alive = true;
    bool condemned = false; ///< deleted while it was selected
    int references = 0;
    int holder = kNone; ///< of a bitmap: the device context that has it
};

struct Context
{
    HDC handle;
    HWND window; ///< null for memory device contexts
    bool alive = true;
    std::array<int, 3> selected = {kNone, kNone, kNone}; ///< pen, brush and font; kNone is the one it began with
    int bitmap = kNone;
    std::array<HGDIOBJ, 4> initial = {};
};

class Session
{
public:
    explicit Session(fuzz::Input& input) : m_input(input), m_before(fuzz::GdiObjects()) {}

    /// Ends everything that lives, the device contexts first, so that nothing is selected any more.
    ~Session()
    {
        for (size_t i = 0; i < m_contexts.size(); ++i)
            EndContext(int(i));
        for (size_t i = 0; i < m_objects.size(); ++i)
            Delete(int(i));
        for (const HWND window : m_windows)
            DestroyWindow(window);
        Require(fuzz::GdiObjects() == m_before, "nothing is left over");
    }

    void Step()
    {
        switch (m_input.Below(10)) {
        case 0:
            NewObject();
            break;
        case 1:
            NewContext();
            break;
        case 2:
            Delete(AnyObject());
            break;
        case 3:
        case 4:
            Select(AnyContext(), AnyObject());
            break;
        case 5:
            EndContext(AnyContext());
            break;
        case 6:
            Use(AnyContext());
            break;
        case 7:
            Ask(AnyObject());
            break;
        case 8:
            Windows();
            break;
        default:
            MadeUp();
            break;
        }
        Require(fuzz::GdiObjects() == m_before + Alive(), "as many objects as were made and not deleted");
    }

private:
    int AnyObject() { return m_objects.empty() ? kNone : m_input.Byte() % int(m_objects.size()); }
    int AnyContext() { return m_contexts.empty() ? kNone : m_input.Byte() % int(m_contexts.size()); }
    DWORD Alive() const
    {
        DWORD alive = 0;
        for (const Object& object : m_objects)
            alive += object.alive;
        for (const Context& context : m_contexts)
            alive += context.alive;
        return alive;
    }

    void NewObject()
    {
        const Kind kind = Kind(m_input.Below(kKinds));
        const int width = m_input.Coordinate();
        Object object = {kind, nullptr};
        if (kind == kPen)
            object.handle = CreatePen(m_input.Below(8), width, 0xFF00FF);
        else if (kind == kBrush)
            object.handle = CreateHatchBrush(m_input.Below(6), 0xFF00FF);
        else if (kind == kFont)
            object.handle = CreateFontA(width % 64, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "face");
        else if (kind == kBitmap)
            object.handle = CreateBitmap(width & 63, m_input.Below(64), 1, m_input.Byte() & 1 ? 32 : 1, nullptr);
        else {
            const LOGPALETTE record = {0x300, 1, {}};
            object.handle = CreatePalette(&record);
        }
        Require(object.handle != nullptr, "objects of sensible sizes are made");
        m_objects.push_back(object);
    }
    void NewContext()
    {
        const bool ofWindow = !m_windows.empty() && m_input.Byte() % 3 == 0;
        const HWND window = ofWindow ? m_windows[m_input.Byte() % m_windows.size()] : nullptr;
        Context context = {ofWindow ? GetDC(window) : CreateCompatibleDC(nullptr), window};
        Require((context.handle != nullptr) == (!ofWindow || IsWindow(window)),
                "windows that live have device contexts");
        if (context.handle == nullptr)
            return;
        constexpr UINT kinds[] = {OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP};
        for (size_t kind = 0; kind < 4; ++kind)
            context.initial[kind] = GetCurrentObject(context.handle, kinds[kind]);
        m_contexts.push_back(context);
    }

    void Release(int& selected)
    {
        if (selected == kNone)
            return;
        Object& object = m_objects[size_t(selected)];
        object.holder = kNone;
        if (--object.references == 0 && object.condemned)
            object.alive = false;
        selected = kNone;
    }
    void Delete(int index)
    {
        if (index == kNone)
            return;
        Object& object = m_objects[size_t(index)];
        const bool refused = !object.alive || (object.kind == kBitmap && object.references > 0);
        Require(DeleteObject(object.handle) == !refused,
                "deleting is refused for what is gone and for selected bitmaps");
        if (refused)
            return;
        object.condemned = true;
        object.alive = object.references > 0;
    }
    void Select(int contextIndex, int index)
    {
        if (contextIndex == kNone || index == kNone)
            return;
        Context& context = m_contexts[size_t(contextIndex)];
        Object& object = m_objects[size_t(index)];
        const HGDIOBJ former = SelectObject(context.handle, object.handle);
        const bool held = object.kind == kBitmap &&
                          (context.window != nullptr || (object.holder != kNone && object.holder != contextIndex));
        if (!context.alive || !object.alive || object.kind == kPalette || held) {
            Require(former == nullptr, "a selection is refused");
            return;
        }
        int& selected = object.kind == kBitmap ? context.bitmap : context.selected[size_t(object.kind)];
        const HGDIOBJ expected =
            selected == kNone ? context.initial[size_t(object.kind)] : m_objects[size_t(selected)].handle;
        Require(former == expected, "a selection gives the object selected before");
        ++object.references; // before the former one goes, which may be the same
        Release(selected);
        selected = index;
        object.holder = object.kind == kBitmap ? contextIndex : kNone;
    }
    void EndContext(int index)
    {
        if (index == kNone)
            return;
        Context& context = m_contexts[size_t(index)];
        if (context.window != nullptr) {
            Require(!DeleteDC(context.handle), "a window's device context is released, not deleted");
            Require(ReleaseDC(context.window, context.handle) == int(context.alive), "and that once");
        } else {
            Require(ReleaseDC(nullptr, context.handle) == 0, "a memory device context is deleted, not released");
            Require(DeleteDC(context.handle) == int(context.alive), "and that once");
        }
        if (!context.alive)
            return;
        context.alive = false;
        for (int& selected : context.selected)
            Release(selected);
        Release(context.bitmap);
    }

    void Use(int index)
    {
        if (index == kNone)
            return;
        const Context& context = m_contexts[size_t(index)];
        const int other = AnyContext();
        const HDC dc = context.handle;
        Require(MoveToEx(dc, 1, 1, nullptr) == int(context.alive), "a device context works as long as it lives");
        Require(LineTo(dc, 40, 30) == int(context.alive), "and so do its lines");
        Rectangle(dc, 3, 3, 30, 20);
        TextOut(dc, 0, 0, "text", 4);
        const Context& source = m_contexts[size_t(other)];
        Require(BitBlt(dc, 0, 0, 64, 64, source.handle, 1, 1, SRCCOPY) == int(context.alive && source.alive),
                "blocks go from one that lives to another");
    }
    void Ask(int index)
    {
        if (index == kNone)
            return;
        const Object& object = m_objects[size_t(index)];
        constexpr DWORD types[] = {OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP, OBJ_PAL};
        Require(GetObjectType(object.handle) == (object.alive ? types[object.kind] : 0), "what lives has its kind");
        const int size = GetObject(object.handle, 0, nullptr);
        Require((size > 0) == object.alive, "and a record");
        std::vector<char> room(size_t(size), '\0'); // of just that size: more would be written past it
        Require(GetObject(object.handle, size, size > 0 ? room.data() : nullptr) == size, "which fits its own size");
        if (LivingContext() == nullptr)
            return;
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        const int rows = GetDIBits(LivingContext(), static_cast<HBITMAP>(object.handle), 0, 0, nullptr, &info, 0);
        Require((rows > 0) == (object.alive && object.kind == kBitmap), "bitmaps that live have rows");
    }
    HDC LivingContext() const
    {
        for (const Context& context : m_contexts) {
            if (context.alive)
                return context.handle;
        }
        return nullptr;
    }

    void Windows()
    {
        const int action = m_input.Below(4);
        if (m_windows.empty() || action == 0) {
            CWnd window;
            if (m_windows.size() < 8 &&
                window.CreateEx(0, "", "", WS_POPUP, 0, 0, m_input.Byte() & 63, 20, nullptr, nullptr))
                m_windows.push_back(window.Detach());
            return;
        }
        const HWND window = m_windows[m_input.Byte() % m_windows.size()];
        const BOOL alive = IsWindow(window);
        if (action == 1)
            Require(DestroyWindow(window) == alive, "a window is destroyed once");
        else
            Require(MoveWindow(window, 0, 0, m_input.Byte(), 20, FALSE) == alive, "a window moves as long as it lives");
    }

    /// Handles that nobody gave out: bits of real ones turned over, and any.
    void MadeUp()
    {
        uint64_t bits = m_input.Take<uint64_t>();
        const int index = AnyObject();
        if (index != kNone && m_input.Byte() & 1)
            bits =
                uint64_t(reinterpret_cast<uintptr_t>(m_objects[size_t(index)].handle)) ^ (uint64_t(1) << (bits & 63));
        const HGDIOBJ object = reinterpret_cast<HGDIOBJ>(uintptr_t(bits));
        const DWORD type = GetObjectType(object);
        if (type != 0)
            return; // the handle of another one, or of a stock object
        Require(!DeleteObject(object), "what was never there is not deleted");
        Require(GetObject(object, 0, nullptr) == 0, "has no record");
        Require(SelectObject(LivingContext(), object) == nullptr, "is not selected");
        Require(!LineTo(static_cast<HDC>(object), 1, 1), "draws nothing");
        CGdiObject::FromHandle(object);
        Require(CDC::FromHandle(static_cast<HDC>(object)) == nullptr ||
                    GetBkColor(static_cast<HDC>(object)) == CLR_INVALID,
                "and has no colours");
    }

    fuzz::Input& m_input;
    DWORD m_before;
    std::vector<Object> m_objects;
    std::vector<Context> m_contexts;
    std::vector<HWND> m_windows;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > 2000)
        return 0;
    fuzz::Input input(data, size);
    Session session(input);
    while (!input.IsEmpty())
        session.Step();
    return 0;
}
