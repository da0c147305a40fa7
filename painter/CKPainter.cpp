// The painter's life: what a fresh one knows, what copies share, and who frees it.
//
// A painter owns four things through plain pointers that hosts can read and two of which they can set. Copies hold the
// same pointers. Counting holders per object would go wrong as soon as a host puts a pointer back that another copy
// still has; asking the other copies when one lets go cannot.
#include "painter/CKPainter.h"

#include "entities/CKGeomArray.h"
#include "painter/GdiScope.h"

#include <cstring>

namespace {

// 0.03937 inches to the millimetre as a single-precision value, widened: scales of saved views depend on its bits.
constexpr double kInchesPerMM = 0.03937000036239624;

LOGFONTA MakeInformationFont()
{
    LOGFONTA font = {}; // height and width come with the size asked for
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    std::memcpy(font.lfFaceName, "Tahoma", sizeof("Tahoma"));
    return font;
}

} // namespace

// The members that have no natural start are 0 and the scale is 1, so that mapping a point before the first frame gives
// something finite. The logical centre is not empty yet: Init() makes it so.
CKPainter::CKPainter()
    : m_pixelsPerMM(GetScreenCaps(LOGPIXELSX) * kInchesPerMM), m_informationFont(MakeInformationFont()), m_copies(this)
{}

CKPainter::CKPainter(const CKPainter& source) : m_copies(this)
{
    CopyState(source);
    m_copies.Join(source.m_copies);
}

CKPainter& CKPainter::operator=(const CKPainter& source)
{
    if (this == &source)
        return *this;

    // Release first: what this painter alone holds has to go before its pointers are overwritten.
    // Within one ring the source still holds what both share, so nothing of it is freed here.
    ReleaseOwned();
    CopyState(source);
    m_copies.Join(source.m_copies);
    return *this;
}

CKPainter::~CKPainter()
{
    ReleaseOwned();
}

void CKPainter::CopyState(const CKPainter& source)
{
    // View state: a copy shows what its source shows.
    m_simpleDraw = source.m_simpleDraw;
    m_boardMirror = source.m_boardMirror;
    m_finishDraw = source.m_finishDraw;
    m_captureMode = source.m_captureMode;
    m_physicalCenterX = source.m_physicalCenterX;
    m_physicalCenterY = source.m_physicalCenterY;
    m_logicalCenterX = source.m_logicalCenterX;
    m_logicalCenterY = source.m_logicalCenterY;
    m_scale = source.m_scale;
    m_pixelsPerMM = source.m_pixelsPerMM;
    m_screenLeft = source.m_screenLeft;
    m_screenRight = source.m_screenRight;
    m_screenTop = source.m_screenTop;
    m_screenBottom = source.m_screenBottom;
    // Shared from here on, with the viewport that the shared frame was composed under.
    m_savedDC = source.m_savedDC;
    m_savedBitmap = source.m_savedBitmap;
    m_captureBitmap = source.m_captureBitmap;
    m_savedScale = source.m_savedScale;
    m_savedCenter = source.m_savedCenter;
    m_savedLeft = source.m_savedLeft;
    m_savedRight = source.m_savedRight;
    m_savedTop = source.m_savedTop;
    m_savedBottom = source.m_savedBottom;
    m_redraw = source.m_redraw;
    m_informationFont = source.m_informationFont;
    m_eventObjects = source.m_eventObjects;
    m_backgroundTransparent = source.m_backgroundTransparent;
    m_backgroundReplacement = source.m_backgroundReplacement;
    m_captureAreaSet = source.m_captureAreaSet;
    m_captureCenterX = source.m_captureCenterX;
    m_captureCenterY = source.m_captureCenterY;
    m_captureWidth = source.m_captureWidth;
    m_captureHeight = source.m_captureHeight;
}

// The pointers end up null, so that this painter can never be counted as a holder afterwards.
void CKPainter::ReleaseOwned()
{
    ReleaseSavedFrame();
    ReleaseCaptureCell();
    DeleteEventObjects();
}

void CKPainter::ReleaseSavedFrame()
{
    // The device context goes first: a bitmap that is still selected can't be deleted.
    if (!m_copies.IsShared(&CKPainter::m_savedDC))
        delete m_savedDC;
    m_savedDC = nullptr;
    if (!m_copies.IsShared(&CKPainter::m_savedBitmap))
        delete m_savedBitmap;
    m_savedBitmap = nullptr;
}

void CKPainter::ReleaseCaptureCell()
{
    // Only the cell: the bitmap in it was handed to the host, who may have given it to the clipboard.
    if (!m_copies.IsShared(&CKPainter::m_captureBitmap))
        delete m_captureBitmap;
    m_captureBitmap = nullptr;
}
