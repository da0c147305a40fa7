#pragma once

#include "foundation/KRecords.h"
#include "KolmApi.h"
#include "painter/CopyRing.h"
#include "painter/KRectangleD.h"

#include <afxwin.h>

class CKGeom;
class CKGeomArray;

/// The view of a board in a window: maps logical millimetres (x right, y up) to device pixels (x right, y down) under a
/// scale, a centre and an optional mirror, draws figures, composes frames off screen and exports pictures.
///
/// A host derives from it, overrides DrawBody, DrawEnding, IsExistData and GetTargetSize, and calls Init and then
/// DrawView on each paint. Two kinds of drawing operations exist:
///  - those without "NoWorldTransform" in their name turn each value v into T(v) = v x scale x pixels per mm + 0.5,
///    truncated toward zero, and leave shift, y-flip and mirror to the world transform that is set while DrawBody runs;
///  - those named ...NoWorldTransform compute final device pixels themselves (GetTranslatedPhysicalCoord) and expect
///    the identity transform, as in DrawEnding.
/// Conversions to int saturate: a value beyond the range of int gives its nearest bound and NaN gives 0.
///
/// Ownership: the painter owns its saved frame (device context and bitmap), the cell of its capture bitmap (the cell,
/// not the bitmap in it) and its event objects. Copies made by construction or assignment share these objects, and the
/// last painter that refers to one frees it. Everything runs on the thread of the window; nothing is locked.
///
/// Device contexts, windows and shapes passed in have to be valid unless an operation says that null is allowed.
class KOLM_API CKPainter
{
public:
    /// Reads the pixels per mm from the screen. Scale 1, all other state 0 and no saved frame; call Init next.
    CKPainter();
    CKPainter(const CKPainter& source); ///< copies every member and shares the owned objects
    /// The same; objects held before are freed unless another copy has them.
    CKPainter& operator=(const CKPainter& source);

    // The virtual operations, in the order of their slots, which hosts' binaries depend on.

    virtual ~CKPainter();
    /// Keeps the logical area that Capture(CWnd*) frames while the logical centre is empty. Stays set for good.
    virtual void SetCaptureZoomArea(double centerX, double centerY, double areaWidth, double areaHeight);
    /// Empties the logical centre, moves the physical centre to (0, 0) and ends simple drawing. The view is not used.
    virtual void Init(CView* view);
    /// Composes a new frame of the client area off screen, keeps it as the saved frame and copies it to `dc`. With an
    /// empty logical centre the target area is fitted first. Nothing happens without a window. When a hook throws, the
    /// exception passes, the frame stays unfinished and IsFinishDraw() stays 0.
    virtual void DrawView(CWnd* wnd, CDC* dc);
    /// Host hook: draws the board. `dc` carries the world transform from T() pixels to the device.
    virtual void DrawBody(CWnd* wnd, CDC* dc);
    /// Host hook: draws over the board in device pixels. Called whether or not there is data.
    virtual void DrawEnding(CWnd* wnd, CDC* dc);
    /// Host hook: non-zero when DrawBody has something to draw. Here 0.
    virtual int IsExistData(CWnd* wnd);
    /// Host hook: the area to fit when the logical centre is empty. Here four zeros, which fits nothing.
    virtual KRectangleD GetTargetSize();
    /// Multiplies the scale by `factor`, without a limit. Returns the scale before.
    virtual double ZoomInScale(double factor);
    /// Divides the scale by `factor` unless that falls below 0.001 (1e-06 when `fine`). Returns the scale before.
    virtual double ZoomOutScale(double factor, int fine);
    /// Strokes a line with a pen of T(width) pixels; 0 gives the one-pixel pen. The last argument is not used.
    virtual void DrawLine(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, double width,
                          int unused);

    // ---- Mapping

    int TranslateCoordX(double x);             ///< T(x)
    int TranslateCoordX(float x);              ///< T of the widened value
    int TranslateCoordY(double y);             ///< T(y), not flipped
    int TranslateCoordY(float y);              ///< T of the widened value
    int TranslateRate(double length);          ///< T of a length
    KPoint TranslateCoord(double x, double y); ///< T of both

    /// The device pixel of a logical point: mirror, centre and scale applied, rounded by floor(v + 0.5).
    KPoint GetTranslatedPhysicalCoord(double x, double y);
    /// The logical point under a device pixel, with the mirror taken out again. Not finite while the scale is 0.
    KPointD GetLogicalCoordFromPhysicalCoord(int px, int py);
    KPointD GetLogicalCoordFromPhysicalCoord(CPoint& pixel); ///< the same
    double GetLogicalCoordFromPhysicalCoordX(int px);        ///< its x alone
    double GetLogicalCoordFromPhysicalCoordY(int py);        ///< its y alone
    double GetLogicalRateFromPhysicalRate(int pixels);       ///< a length in pixels as millimetres
    /// 1 when the closed box shares a point with the visible rectangle, so touching edges count; else 0.
    int IsScreenOverlapped(double xmin, double xmax, double ymin, double ymax);

    XFORM GenerateXFormOriginal();                               ///< the identity
    XFORM GenerateXFormTranslated(float dx, float dy);           ///< a shift in pixels
    XFORM GenerateXFormMirrorY();                                ///< T() pixels to device pixels, board not mirrored
    XFORM GenerateXFormMirrorY(int mirror);                      ///< the same; non-zero also negates x
    XFORM GenerateXFormRotated(float angle, float dx, float dy); ///< degrees, counter-clockwise as seen on the device

    // ---- Viewport and zoom

    /// Recomputes the visible logical rectangle for a client area in pixels; symmetric about the logical centre.
    void UpdateLogicalScreenSide(int width, int height);
    /// Pans by a mouse movement in pixels. An empty logical centre stays empty.
    void MovedOriginByPhysicalDistance(int dx, int dy);
    // The three zoom operations frame an area in a client area of width x height pixels. `ratio` is the share of the
    // client area to fill. One zero extent takes the value of the other; with both zero nothing changes at all.

    /// Frames the logical area. The centre is stored as given: a mirrored view wants its x negated.
    void ZoomArea(int width, int height, double centerX, double centerY, double areaWidth, double areaHeight,
                  double ratio);
    /// Frames the box of two logical corners in any order, computed in single precision; centre stored as given.
    void ZoomAreaByMinMax(int width, int height, float x1, float y1, float x2, float y2, double ratio);
    /// Frames what the pixel box with the middle (px, py) and the size pw x ph shows now, mirrored or not.
    void ZoomAreaByPhysicalSize(int width, int height, int px, int py, int pw, int ph, double ratio);
    void Init();                    ///< the same as Init(CView*)
    void FitToWindow();             ///< empties the logical centre, so that the next frame fits the target area
    void SetLogicalCenterToEmpty(); ///< the same

    // ---- Members read and written as they are

    /// @{
    /// 1 shows a millimetre as GetPixcelPerMM() pixels. A scale of 0 or no number draws everything into one point.
    double GetScale() { return m_scale; }
    void SetScale(double scale) { m_scale = scale; }
    /// @}
    /// @{
    /// Device pixels per logical millimetre at scale 1, from the screen unless set.
    double GetPixcelPerMM() { return m_pixelsPerMM; }
    void SetPixcelPerMM(double pixelsPerMM) { m_pixelsPerMM = pixelsPerMM; }
    /// @}
    /// @{
    /// In mirrored form: the negated board x while the board is mirrored.
    double GetLogicalCenterX() { return m_logicalCenterX; }
    double GetLogicalCenterY() { return m_logicalCenterY; }
    KPointD GetLogicalCenterCoord() { return {m_logicalCenterX, m_logicalCenterY}; }
    /// @}
    int IsLogicalCenterEmpty();                ///< 1 when the centre's x is the largest finite double, whatever its y
    void SetLogicalCenter(double x, double y); ///< in mirrored form
    /// @{
    /// The device pixel that shows the logical centre.
    int GetPhysicalCenterX() { return m_physicalCenterX; }
    int GetPhysicalCenterY() { return m_physicalCenterY; }
    void SetPhysicalCenter(int x, int y);
    void InitPhysicalCenter() { SetPhysicalCenter(0, 0); }
    /// @}
    /// @{
    /// The visible rectangle in board millimetres, as of the last fit, frame or UpdateLogicalScreenSide.
    double GetLogicalScreenLeft() { return m_screenLeft; }
    double GetLogicalScreenRight() { return m_screenRight; }
    double GetLogicalScreenTop() { return m_screenTop; }
    double GetLogicalScreenBottom() { return m_screenBottom; }
    /// @}
    int IsBoardMirrorX() { return m_boardMirror; } ///< non-zero: the board is shown mirrored about the y axis
    void SetBoardMirrorX(int mirror) { m_boardMirror = mirror; } ///< the centre stays: negate its x to stay at a place
    /// @{
    /// 1 while the host pans; a hint for drawing code.
    int IsSimpleDraw() { return m_simpleDraw; }
    void EnableSimpleDraw() { m_simpleDraw = 1; }
    void DisableSimpleDraw() { m_simpleDraw = 0; }
    /// @}
    /// @{
    /// A flag of the host's own, 1 or 0.
    int IsRedraw() { return m_redraw; }
    void SetRedraw() { m_redraw = 1; }
    void ReleaseRedraw() { m_redraw = 0; }
    /// @}
    int IsFinishDraw() { return m_finishDraw; } ///< 0 while a frame or a capture of the view is composed, 1 afterwards
    /// @{
    /// 0, as at first: captures are compatible with the window; 1: monochrome; any other value: no bitmap is made.
    int GetCaptureMode() { return m_captureMode; }
    void SetCaptureMode(int mode) { m_captureMode = mode; }
    /// @}

    // The saved frame. The setters only store the pointer and the painter owns the new object from then on. The object
    // stored before is not deleted: it goes back to the caller, unless a copy of this painter still holds it.

    /// @{
    /// The saved device context and the bitmap selected into it; null without a frame.
    CDC* GetSavedDC() { return m_savedDC; }
    void SetSavedDC(CDC* dc) { m_savedDC = dc; }
    CBitmap* GetSavedBitmap() { return m_savedBitmap; }
    void SetSavedBitmap(CBitmap* bitmap) { m_savedBitmap = bitmap; }
    /// @}
    /// @{
    /// The viewport of the last DrawView: what the saved frame shows.
    double GetSavedDCScale() { return m_savedScale; }
    void SetSavedDCScale(double scale) { m_savedScale = scale; }
    KPointD GetSavedDCLogicalCenterCoord() { return m_savedCenter; }
    void SetSavedDCLogicalCenterCoord(KPointD center) { m_savedCenter = center; }
    double GetSavedDCLogicalScreenLeft() { return m_savedLeft; }
    double GetSavedDCLogicalScreenRight() { return m_savedRight; }
    double GetSavedDCLogicalScreenTop() { return m_savedTop; }
    double GetSavedDCLogicalScreenBottom() { return m_savedBottom; }
    void SetSavedDCLogicalScreenLeft(double left) { m_savedLeft = left; }
    void SetSavedDCLogicalScreenRight(double right) { m_savedRight = right; }
    void SetSavedDCLogicalScreenTop(double top) { m_savedTop = top; }
    void SetSavedDCLogicalScreenBottom(double bottom) { m_savedBottom = bottom; }
    /// @}

    /// @{
    /// Behind frames, captures and pixel-copied transparent texts; black at first.
    COLORREF GetBackgroundColorForTransparent() { return m_backgroundTransparent; }
    void SetBackgroundColorForTransparent(COLORREF color) { m_backgroundTransparent = color; }
    /// @}
    /// @{
    /// Behind opaque texts; 1, which is nearly black, at first.
    COLORREF GetBackgroundColorForReplacement() { return m_backgroundReplacement; }
    void SetBackgroundColorForReplacement(COLORREF color) { m_backgroundReplacement = color; }
    /// @}

    // ---- Figures. Each is built as a path and stroked or filled with objects made for the call. Lengths and points
    // are logical millimetres; pen widths in pixels come from T(width), and 0 is the one-pixel pen.

    /// A line in device pixels.
    void DrawLineNoWorldTransform(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, double width);
    /// Direction -1 passes AD_CLOCKWISE, any other value AD_COUNTERCLOCKWISE. Through the y-flip of the world transform
    /// -1 is the counter-clockwise arc on the board. The arc ends on the ray through the end point. The last argument
    /// is not used.
    void DrawArc(CDC* dc, COLORREF color, double startX, double startY, double endX, double endY, double centerX,
                 double centerY, int direction, double width, int unused);
    /// The same calls in device pixels, where no flip turns the direction: a host that wants the board's arc on an
    /// unmirrored view reverses the code first.
    void DrawArcNoWorldTransform(CDC* dc, COLORREF color, double startX, double startY, double endX, double endY,
                                 double centerX, double centerY, int direction, double width, int unused);
    /// The radius comes first. Outlined with the one-pixel pen, or filled when `fill` is non-zero; likewise below.
    void DrawCircle(CDC* dc, COLORREF color, double radius, double centerX, double centerY, int fill);
    /// The same in device pixels.
    void DrawCircleNoWorldTransform(CDC* dc, COLORREF color, double radius, double centerX, double centerY, int fill);
    /// Axis-parallel; half sizes are T(size x 0.5).
    void DrawRectangle(CDC* dc, COLORREF color, double centerX, double centerY, double width, double height, int fill);
    /// The same, outlined with a pen of `penWidth` pixels.
    void DrawRectangleWithIntPenWidth(CDC* dc, COLORREF color, double centerX, double centerY, double width,
                                      double height, int fill, int penWidth);
    /// Axis-parallel; half sizes are T(size) / 2 in whole pixels.
    void DrawRectangleNoWorldTransform(CDC* dc, COLORREF color, double centerX, double centerY, double width,
                                       double height, int fill);
    void DrawCross(CDC* dc, COLORREF color, int x, int y, int size);          ///< in pixels; arms of size / 2
    void DrawCross(CDC* dc, COLORREF color, double x, double y, double size); ///< the same at T of each value
    /// A shaft with a head at the second point, and at the first when `bothEnds`. Heads are 1 mm long, or a quarter of
    /// shafts up to 4 mm; wings stand at 20 degrees. Ends that coincide draw nothing. Lines go through DrawLine.
    void DrawArrow(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, int bothEnds);
    /// The same in device pixels.
    void DrawArrowNoWorldTransform(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, int bothEnds);
    /// An arrow with lines of `width`. A head is a quarter of the shaft, but at most a quarter of `headLimit`.
    void DrawArrowWithPenWidth(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2, double width,
                               int headAtStart, int headAtEnd, float headLimit);
    /// The same in device pixels.
    void DrawArrowNoWorldTransformWithPenWidth(CDC* dc, COLORREF color, double x1, double y1, double x2, double y2,
                                               double width, int headAtStart, int headAtEnd, float headLimit);
    /// Strokes the path built by the caller with a dashed pen over the background colour 1.
    void StrokeDashLine(CDC* dc, int penWidth, COLORREF color);

    // ---- Text. Heights are logical millimetres, angles degrees counter-clockwise.

    /// Draws text centred above the anchor, in GM_ADVANCED with its own transform. Below 3 pixels nothing is drawn.
    /// Leaves GM_ADVANCED and the transform of GenerateXFormMirrorY(IsBoardMirrorX()) behind.
    void DrawWindowFontText(CDC* dc, int transparent, COLORREF color, CString text, double height, double x, double y,
                            float angle);
    /// Copies text pixel by pixel, its box centred on the anchor. The raster operation does not apply, and the whole
    /// box is covered also when transparent. Draws nothing when no memory device context or bitmap can be made.
    void DrawWindowFontTextNoWorldTransform(CDC* dc, int transparent, COLORREF color, CString text, double x, double y,
                                            double height);
    void DrawTextNoWorldTransform(CDC* dc, COLORREF color, int transparent, CString text, double x, double y,
                                  double height); ///< the same
    /// Draws 10-point text 10 pixels below the device pixel of (-x, -y). Leaves GM_ADVANCED, the mirror transform, its
    /// font, OPAQUE mode, colour and alignment in the device context. The last two arguments are not used.
    void DrawTextA(CDC* dc, COLORREF color, CString text, double x, double y, double unusedSize, unsigned int unused);
    /// Width and height in pixels of text in the default font of a fresh memory device context; `dc` may be null. (0,
    /// 0) when no context could be made.
    KPointD GetTextSize(CDC* dc, CString text);
    /// A new font of the information face that the caller deletes. Height and stretched width are -points x LOGPIXELSY
    /// of the screen / 72 pixels. Null when the platform makes none.
    HFONT CreateInformationFont(int pointSize);

    // ---- Outlines: segments added to the path that the caller began. Coordinates become T() pixels. A non-zero
    // `first` starts a figure at its first point, 0 draws a line to it. Placing rotates about the origin, mirrors (x
    // negated) and then adds the offset. Sweep flag: non-zero runs counter-clockwise on the board.

    void AddLinePath(CDC* dc, double x1, double y1, double x2, double y2, int first); ///< a segment
    /// A placed segment.
    void AddLinePath(CDC* dc, double x1, double y1, double x2, double y2, double offsetX, double offsetY, float angle,
                     int mirror, int first);
    void AddCirclePath(CDC* dc, int centerX, int centerY, int radius, int first);          ///< in pixels
    void AddCirclePath(CDC* dc, double centerX, double centerY, double radius, int first); ///< at T of each value
    /// A closed rectangle turned about its centre; never thinner than two pixels.
    void AddRectanglePath(CDC* dc, double centerX, double centerY, double width, double height, float angle, int mirror,
                          int first);
    /// A true arc from 40 pixels of radius and 2 degrees on, else chords of 15 degrees, below 30 degrees one chord.
    /// Start and end within 1e-07 mm give a whole circle, a radius of no pixel a line. The float before `mirror` is not
    /// used.
    void AddArcPath(CDC* dc, double startX, double startY, double endX, double endY, double centerX, double centerY,
                    int sweepCcw, double offsetX, double offsetY, float angle, float unused, int mirror, int first);
    /// The closed outline of a track with round or square ends that reach half a width beyond the ends. A width of 0 or
    /// less adds the bare segment.
    void AddLineOutlinePath(CDC* dc, double x1, double y1, double x2, double y2, float width, int roundEnds);
    /// The closed outline of a thick arc with round ends; two circles when start and end are equal, whose centre is
    /// mirrored and moved but not turned. A width of 0 or less continues the current figure with the bare arc. The
    /// float before `mirror` is not used.
    void AddArcOutlinePath(CDC* dc, double startX, double startY, double endX, double endY, double centerX,
                           double centerY, double width, int sweepCcw, double offsetX, double offsetY, float angle,
                           float unused, int mirror);

    // ---- Stroking and filling the current path, which they use up. Selected objects are put back.

    void StrokePath(CDC* dc, int width, COLORREF color);        ///< solid pen of `width` pixels
    void StrokePath(CDC* dc, CPen& pen);                        ///< with the given pen
    void FillPath(CDC* dc, COLORREF color);                     ///< in the context's fill mode; open figures are closed
    void FillPath(CDC* dc, CPen& pen, COLORREF color);          ///< the same; the pen is selected meanwhile
    void StrokeAndFillPath(CDC* dc, int width, COLORREF color); ///< fill and pen in one colour
    void StrokeAndFillPath(CDC* dc, CPen& pen, COLORREF color); ///< with the given pen; the colour is the fill's
    /// @{
    /// `hatch` is a GDI hatch style 0 to 5, drawn on a transparent background, or -1 for a solid fill. The pen of the
    /// first form is geometric with round ends and joins.
    void StrokeAndFillPathHatchStyle(CDC* dc, int width, COLORREF color, int hatch);
    void StrokeAndFillPathHatchStyle(CDC* dc, CPen& pen, COLORREF color, int hatch);
    /// @}

    // ---- Frames

    /// Prepares `memDC` and `bitmap` (both without a handle) for a frame of the client rectangle `rect`: sets the
    /// physical centre, paints the background and fits the target area when the logical centre is empty. The background
    /// pen and brush stay selected in both contexts.
    void SetupDraw(CDC* dc, CDC* memDC, CBitmap* bitmap, CRect* rect, COLORREF background);
    /// The same for a capture: only `memDC` is touched and its pen and brush are put back, and an empty centre fits the
    /// capture zoom area when one was set, without negating its x for the mirror.
    void BackGroundDraw(CDC* dc, CDC* memDC, CBitmap* bitmap, CRect* rect, COLORREF background);
    void DrawSavedDC(CWnd* wnd, CDC* dc); ///< copies the saved frame to `dc`; nothing when one of the three is missing
    /// Draws the shapes that are not hidden, each in its own colour. Null arrays and null entries draw nothing. A shape
    /// that shortens the array while it is drawn raises the array's invalid-argument exception.
    void DrawGeoms(CDC* dc, CKGeomArray* shapes);
    void DrawGeoms(CDC* dc, CKGeomArray* shapes, COLORREF color); ///< the same in one colour
    /// Shows shapes over the saved frame with exclusive-or and takes them out of it again, so that the window shows
    /// them until its next paint. Without a window they are drawn into the saved frame once: the next such call removes
    /// them. Nothing without a saved frame.
    void DrawGeomsAndDrawSavedDC(CWnd* wnd, CKGeomArray* first, CKGeomArray* second);
    /// The same in one colour.
    void DrawGeomsAndDrawSavedDC(CWnd* wnd, CKGeomArray* first, CKGeomArray* second, COLORREF color);

    // ---- Event objects: temporary shapes that the painter owns and the host draws.

    void AddEventObject(CKGeom* shape); ///< takes ownership, unless an exception for want of memory passes
    /// Null before the first shape and after DeleteEventObjects.
    CKGeomArray* GetEventObjects() { return m_eventObjects; }
    void DeleteEventObjects();        ///< deletes the array and its shapes, unless a copy still shares it
    void DeleteEventObjectElements(); ///< deletes the shapes, keeps the array
    void DeleteLastEventObject();     ///< nothing without one
    void RemoveLastEventObject();     ///< the caller owns the shape again

    // ---- Capture and export

    /// Composes the view into a new saved frame, framing the capture zoom area while the centre is empty, and shows it
    /// in the window. The saved viewport is not recorded. Nothing without a window.
    void Capture(CWnd* wnd);
    /// Draws the body of the logical box of two corners (any order) into a new bitmap of width x height pixels; one
    /// size of 0 takes the other's value, two do nothing. The view keeps the captured viewport. The bitmap is the
    /// host's, to delete or to hand to the clipboard: the next capture and the painter's end only drop its handle.
    void Capture(CWnd* wnd, int width, int height, float x1, float y1, float x2, float y2);
    HBITMAP* GetCaptureBitmap() { return m_captureBitmap; } ///< the cell of the last captured bitmap; null before
    /// Places the bitmap on the clipboard, which then owns it. Shows a message when it is refused. `wnd` may be null.
    void CopyToClipboardBitmap(void* bitmap, CWnd* wnd);
    /// Writes a bitmap file. Failures are shown in a message; a bad bitmap writes nothing.
    void SaveToBMP(CString path, HBITMAP bitmap);
    /// Writes a JPEG file by way of the bitmap file path + ".bmp", which is overwritten and then deleted.
    void SaveToJPG(CString path, HBITMAP bitmap);

private:
    // Defined in PainterMapping.h for the painter's own sources: every point of every figure passes through them.
    int T(double value) const;
    KPoint D(double x, double y) const;
    double PixelsPerUnit() const { return m_pixelsPerMM * m_scale; }

    void CopyState(const CKPainter& source); ///< every member but the place in the ring of copies
    /// Lets go of the owned objects, deletes those that no copy holds, and leaves the pointers null.
    void ReleaseOwned();
    void ReleaseSavedFrame();
    void ReleaseCaptureCell();

    /// Centres the area and scales it into width x height pixels, under the rule of the zoom operations.
    void FitArea(int width, int height, double centerX, double centerY, double areaWidth, double areaHeight,
                 double ratio);
    // Figures in pixels, outlined or filled.
    void DrawCirclePath(CDC* dc, COLORREF color, KPoint center, int radius, int fill);
    void DrawRectanglePath(CDC* dc, COLORREF color, KPoint center, int halfWidth, int halfHeight, int fill,
                           int penWidth);

    /// Makes the off-screen context and bitmap, compatible with `dc`, and moves the physical centre to their middle.
    void CreateFrame(CDC* dc, CDC* memDC, CBitmap* bitmap, const CRect& rect);
    void PaintBackground(CDC* dc, const CRect& rect, COLORREF background);
    /// Fits the target or capture area when the logical centre is empty; else only updates the visible rectangle.
    void FitFrame(const CRect& rect, int useCaptureArea);
    void RenewSavedFrame(); ///< gives up the saved frame and starts one without handles
    /// Asks the hooks for body and ending, draws them into the saved frame and shows it in `dc`.
    void ComposeFrame(CWnd* wnd, CDC* dc, const CRect& rect);
    void DrawBodyTransformed(CWnd* wnd, CDC* dc); ///< the body alone, under the board's world transform
    /// The overlay of DrawGeomsAndDrawSavedDC; a null colour asks for each shape's own.
    void OverlayShapes(CWnd* wnd, CKGeomArray* first, CKGeomArray* second, const COLORREF* color);
    /// Background and body of a sized capture into whatever `memDC` holds. Changes the view.
    void RenderCapture(CWnd* wnd, CDC* memDC, int width, int height, float x1, float y1, float x2, float y2);

    /// A packed bitmap (header, colour table, rows) in global memory that the caller frees; null when the compression
    /// is BI_BITFIELDS, the bitmap is none, or memory or the platform's conversion fails. `palette` may be null.
    BITMAPINFO* DDBToDIB(CBitmap& bitmap, DWORD compression, CPalette* palette);
    BITMAPINFO* DDBToDIB(HBITMAP bitmap, DWORD compression, HPALETTE palette);
    /// Writes the packed bitmap as a bitmap file; 1 when complete. 0 for null, without touching a file, and after a
    /// message when the file can't be made or written, in which case what was written stays.
    int WriteDIB(const char* path, BITMAPINFO* packed);

    // In the order that the class's layout is known by.
    int m_simpleDraw = 0;
    int m_boardMirror = 0;
    int m_finishDraw = 0;
    int m_captureMode = 0;
    int m_physicalCenterX = 0;
    int m_physicalCenterY = 0;
    double m_logicalCenterX = 0.0; // in mirrored form
    double m_logicalCenterY = 0.0;
    double m_scale = 1.0;
    double m_pixelsPerMM = 0.0;
    double m_screenLeft = 0.0;
    double m_screenRight = 0.0;
    double m_screenTop = 0.0;
    double m_screenBottom = 0.0;
    CDC* m_savedDC = nullptr;
    CBitmap* m_savedBitmap = nullptr;
    HBITMAP* m_captureBitmap = nullptr;
    double m_savedScale = 0.0;
    KPointD m_savedCenter = {};
    double m_savedLeft = 0.0;
    double m_savedRight = 0.0;
    double m_savedTop = 0.0;
    double m_savedBottom = 0.0;
    int m_redraw = 0;
    LOGFONTA m_informationFont = {};
    CKGeomArray* m_eventObjects = nullptr;
    COLORREF m_backgroundTransparent = 0;
    COLORREF m_backgroundReplacement = 1;
    int m_captureAreaSet = 0;
    double m_captureCenterX = 0.0;
    double m_captureCenterY = 0.0;
    double m_captureWidth = 0.0;
    double m_captureHeight = 0.0;
    CopyRing<CKPainter> m_copies;
};
