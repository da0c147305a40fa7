/// Wrappers of objects: ownership, and the temporary wrappers of handles without an owner.
#include "gdi/DeviceContext.h"
#include "gdi/mfc/devicecontexts.h"
#include "gdi/mfc/gdiobjects.h"
#include "gdi/mfc/TemporaryWrappers.h"

using namespace gdi;

namespace {

TemporaryWrappers<CPen> g_pens;
TemporaryWrappers<CBrush> g_brushes;
TemporaryWrappers<CFont> g_fonts;
TemporaryWrappers<CBitmap> g_bitmaps;
TemporaryWrappers<CPalette> g_palettes;

/// The live object behind a handle of any kind that wrappers own.
Slot* FindObject(HGDIOBJ object)
{
    if (HandleKind(object) == Kind::Pen) { // made and deleted with every stroke
        return tables.pens.Find(object);
    }
    switch (HandleKind(object)) {
    case Kind::Brush:
        return tables.brushes.Find(object);
    case Kind::Font:
        return tables.fonts.Find(object);
    case Kind::Bitmap:
        return tables.bitmaps.Find(object);
    case Kind::Palette:
        return tables.palettes.Find(object);
    default:
        return nullptr;
    }
}

/// Made-up handles get none, so that they cannot fill memory with wrappers.
template <class Wrapper, class Pool>
CGdiObject* Temporary(TemporaryWrappers<Wrapper>& wrappers, const Pool& pool, HGDIOBJ object)
{
    Wrapper* const wrapper = pool.Covers(object) ? wrappers.At(HandleBits(object)) : nullptr;
    if (wrapper != nullptr) {
        wrapper->m_hObject = object;
    }
    return wrapper;
}

/// The wrapper has to be of the class that FromHandle of the derived classes casts it to, so each kind has a map.
CGdiObject* TemporaryOf(HGDIOBJ object)
{
    switch (HandleKind(object)) {
    case Kind::Pen:
        return Temporary(g_pens, tables.pens, object);
    case Kind::Brush:
        return Temporary(g_brushes, tables.brushes, object);
    case Kind::Font:
        return Temporary(g_fonts, tables.fonts, object);
    case Kind::Bitmap:
        return Temporary(g_bitmaps, tables.bitmaps, object);
    case Kind::Palette:
        return Temporary(g_palettes, tables.palettes, object);
    default:
        return nullptr;
    }
}

/// Hands a new object to a wrapper without one.
template <class Object>
BOOL Own(Object* object, CGdiObject& wrapper)
{
    if (object == nullptr) {
        return FALSE;
    }
    wrapper.m_hObject = MakeHandle<HGDIOBJ>(*object);
    object->owner = &wrapper;
    return TRUE;
}

template <class Object>
void EndOwned(Object* object, const CGdiObject& wrapper)
{
    if (object != nullptr) {
        if (object->owner == &wrapper) {
            object->owner = nullptr;
        }
        Condemn(object);
    }
}

} // namespace

CGdiObject* gdi::NewTemporaryOf(Slot& object)
{
    CGdiObject* const wrapper = TemporaryOf(MakeHandle<HGDIOBJ>(object));
    object.temporary = wrapper;
    return wrapper;
}

// Takes effect with the last selection.
CGdiObject::~CGdiObject()
{
    switch (HandleKind(m_hObject)) { // pens and brushes last for a stroke or a fill
    case Kind::Pen:
        EndOwned(tables.pens.Find(m_hObject), *this);
        break;
    case Kind::Brush:
        EndOwned(tables.brushes.Find(m_hObject), *this);
        break;
    default:
        DeleteObject();
    }
}

BOOL CGdiObject::Attach(HGDIOBJ object)
{
    if (m_hObject != nullptr || object == nullptr) {
        return FALSE;
    }
    m_hObject = object;
    // Whatever becomes of the handle later, FromHandle finds this wrapper as long as it holds it.
    if (Slot* const slot = FindObject(object)) {
        slot->owner = this;
    }
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ object = m_hObject;
    m_hObject = nullptr;
    Slot* const slot = FindObject(object);
    // The slot may serve another object by now, whose owner is none of our business.
    if (slot != nullptr && slot->owner == this) {
        slot->owner = nullptr;
    }
    return object;
}

BOOL CGdiObject::DeleteObject()
{
    return m_hObject != nullptr && ::DeleteObject(Detach());
}

BOOL CGdiObject::CreateStockObject(int index)
{
    return Attach(::GetStockObject(index));
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ object)
{
    Slot* const slot = FindObject(object);
    return slot != nullptr ? WrapperOf(*slot) : TemporaryOf(object);
}

BOOL CPen::CreatePen(int style, int width, COLORREF color)
{
    return m_hObject == nullptr && Own(NewPen(style, width, color, false), *this);
}

BOOL CBrush::CreateSolidBrush(COLORREF color)
{
    return m_hObject == nullptr && Own(NewBrush(BS_SOLID, color, 0), *this);
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height)
{
    return dc != nullptr && Attach(::CreateCompatibleBitmap(dc->m_hDC, width, height));
}
