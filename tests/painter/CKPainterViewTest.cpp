#include "PainterFixture.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <random>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNan = std::numeric_limits<double>::quiet_NaN();

struct RoundingCase
{
    const char* why;
    double value;
    int truncated; // T, world-transform drawing
    int floored;   // x of D with both centres at 0
};

const RoundingCase kRoundings[] = {
    {"a half goes up in both", 2.5, 3, 3},
    {"a negative half goes up in both", -2.5, -2, -2},
    {"below the half they part", -2.6, -2, -3},
    {"T reaches almost one and a half pixels up", -3.4, -2, -3},
    {"zero", 0.0, 0, 0},
    {"beyond int", 1e300, INT_MAX, INT_MAX},
    {"beyond int, negative", -1e300, INT_MIN, INT_MIN},
    {"infinity", kInf, INT_MAX, INT_MAX},
    {"the last value that fits", 2147483646.0, INT_MAX - 1, INT_MAX - 1},
    {"no number", kNan, 0, 0},
};

/// The device pixel that the world transform makes of T() pixels, in double.
KPointD Transformed(const XFORM& f, KPoint p)
{
    return {double(p.x) * f.eM11 + double(p.y) * f.eM21 + f.eDx, double(p.x) * f.eM12 + double(p.y) * f.eM22 + f.eDy};
}

TEST(CKPainterView, RoundsOnePixelPerMillimetre)
{
    CKPainter painter;
    PlaceView(painter, 1.0);
    for (const RoundingCase& c : kRoundings) {
        EXPECT_EQ(painter.TranslateCoordX(c.value), c.truncated) << c.why;
        EXPECT_EQ(painter.TranslateCoordY(c.value), c.truncated) << c.why;
        EXPECT_EQ(painter.TranslateRate(c.value), c.truncated) << c.why;
        EXPECT_EQ(painter.GetTranslatedPhysicalCoord(c.value, 0.0).x, c.floored) << c.why;
        painter.SetBoardMirrorX(1);
        EXPECT_EQ(painter.GetTranslatedPhysicalCoord(-c.value, 0.0).x, c.floored) << c.why;
        painter.SetBoardMirrorX(0);
        EXPECT_EQ(painter.GetTranslatedPhysicalCoord(0.0, -c.value).y, c.floored) << c.why;
    }
    EXPECT_EQ(painter.TranslateCoordX(-2.6f), -2);
    EXPECT_EQ(At(painter.TranslateCoord(2.5, -3.4)), XY(3, -2));
}

TEST(CKPainterView, ScreenGivesThePixelsPerMillimetre)
{
    CKPainter painter;
    EXPECT_EQ(painter.GetPixcelPerMM(), 96 * double(0.03937f));
    EXPECT_EQ(painter.GetScale(), 1.0);
    GdiSetScreenResolution(120);
    EXPECT_EQ(CKPainter().GetPixcelPerMM(), 120 * double(0.03937f));
    GdiSetScreenResolution(96);
}

TEST(CKPainterView, PixelsLeadBackToThemselves)
{
    std::mt19937 random(20240611);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int round = 0; round < 200; ++round) {
        CKPainter painter;
        PlaceView(painter, between(1.0, 8.0), int(between(-500, 500)), int(between(-500, 500)));
        painter.SetScale(between(0.01, 30.0));
        painter.SetLogicalCenter(between(-300, 300), between(-300, 300));
        painter.SetBoardMirrorX(round % 2);

        CPoint pixel(int(between(-2000, 2000)), int(between(-2000, 2000)));
        const KPointD board = painter.GetLogicalCoordFromPhysicalCoord(pixel);
        EXPECT_EQ(At(painter.GetTranslatedPhysicalCoord(board.x, board.y)), At(pixel)) << round;
        EXPECT_EQ(painter.GetLogicalCoordFromPhysicalCoordX(pixel.x), board.x);
        EXPECT_EQ(painter.GetLogicalCoordFromPhysicalCoordY(pixel.y), board.y);

        // Both ways to the device agree: T is off by less than 1.5 pixels, D by 0.5, and the shift is a float below
        // 2^17.
        const XFORM world = painter.GenerateXFormMirrorY(painter.IsBoardMirrorX());
        const KPointD device = Transformed(world, painter.TranslateCoord(board.x, board.y));
        EXPECT_LT(std::fabs(device.x - pixel.x), 2.02) << round;
        EXPECT_LT(std::fabs(device.y - pixel.y), 2.02) << round;
    }
}

TEST(CKPainterView, MirroredCentreHoldsTheNegatedBoardPoint)
{
    CKPainter painter;
    PlaceView(painter, 4.0, 400, 300);
    painter.SetBoardMirrorX(1);
    painter.SetLogicalCenter(-10.0, 20.0);
    EXPECT_EQ(At(painter.GetTranslatedPhysicalCoord(10.0, 20.0)), XY(400, 300));
    EXPECT_EQ(At(painter.GetLogicalCoordFromPhysicalCoord(400, 300)), XY(10, 20));
    // Positions at both ends of int: the difference needs 33 bits.
    EXPECT_GT(painter.GetLogicalCoordFromPhysicalCoordY(INT_MIN), 5.3e8);
}

TEST(CKPainterView, WorldTransforms)
{
    CKPainter painter;
    PlaceView(painter, 4.0, 400, 300);
    painter.SetScale(2.0);
    painter.SetLogicalCenter(10.0, 20.0);
    painter.SetBoardMirrorX(1);

    struct Case
    {
        const char* why;
        XFORM form;
        float expected[6];
    };
    const Case cases[] = {
        {"identity", painter.GenerateXFormOriginal(), {1, 0, 0, 1, 0, 0}},
        {"shift", painter.GenerateXFormTranslated(3.5f, -2.0f), {1, 0, 0, 1, 3.5f, -2.0f}},
        {"400 - 4 x 10 x 2 and 300 + 4 x 20 x 2, board flag ignored",
         painter.GenerateXFormMirrorY(),
         {1, 0, 0, -1, 320, 460}},
        {"mirror asked for", painter.GenerateXFormMirrorY(7), {-1, 0, 0, -1, 320, 460}},
        {"mirror not asked for", painter.GenerateXFormMirrorY(0), {1, 0, 0, -1, 320, 460}},
        // cos and sin of pi/2 rounded to float: the rest of that rounding and 1
        {"a quarter turn is not exact",
         painter.GenerateXFormRotated(90.0f, 1.0f, 2.0f),
         {-0x1.777a5cp-25f, -1, 1, -0x1.777a5cp-25f, 1, 2}},
    };
    for (const Case& c : cases) {
        const float got[] = {c.form.eM11, c.form.eM12, c.form.eM21, c.form.eM22, c.form.eDx, c.form.eDy};
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(got[i], c.expected[i]) << c.why << ", field " << i;
    }
}

TEST(CKPainterView, VisibleRectangleAndOverlap)
{
    CKPainter painter;
    PlaceView(painter, 2.0, 7, 9); // where the centre is shown does not matter
    painter.SetLogicalCenter(10.0, 5.0);
    painter.UpdateLogicalScreenSide(40, 20);
    EXPECT_EQ(LogicalScreen(painter), std::pair(XY(0, 0), XY(20, 10)));
    EXPECT_EQ(painter.GetLogicalRateFromPhysicalRate(5), 2.5);

    struct Case
    {
        const char* why;
        double xmin, xmax, ymin, ymax;
        int overlapped;
    };
    const Case cases[] = {
        {"inside", 5, 6, 5, 6, 1},
        {"around", -50, 50, -50, 50, 1},
        {"touches left", -5, 0, 5, 6, 1},
        {"past left", -5, -0.001, 5, 6, 0},
        {"touches right", 20, 25, 5, 6, 1},
        {"past right", 20.001, 25, 5, 6, 0},
        {"touches top", 5, 6, 10, 12, 1},
        {"past top", 5, 6, 10.001, 12, 0},
        {"touches bottom", 5, 6, -3, 0, 1},
        {"past bottom", 5, 6, -3, -0.001, 0},
        {"upper edge no number", 5, 6, 5, kNan, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(painter.IsScreenOverlapped(c.xmin, c.xmax, c.ymin, c.ymax), c.overlapped) << c.why;

    painter.SetBoardMirrorX(1);
    painter.UpdateLogicalScreenSide(40, 20);
    EXPECT_EQ(LogicalScreen(painter), std::pair(XY(-20, 0), XY(0, 10)));
}

TEST(CKPainterView, PanningKeepsAnEmptyCentre)
{
    CKPainter painter;
    PlaceView(painter, 4.0);
    painter.SetScale(0.5);
    painter.MovedOriginByPhysicalDistance(8, 6);
    EXPECT_EQ(LogicalCenter(painter), XY(-4, 3));

    painter.EnableSimpleDraw();
    painter.Init();
    EXPECT_EQ(painter.IsLogicalCenterEmpty(), 1);
    EXPECT_EQ(painter.GetLogicalCenterX(), DBL_MAX);
    EXPECT_EQ(painter.IsSimpleDraw(), 0);
    painter.MovedOriginByPhysicalDistance(8, 6);
    EXPECT_EQ(painter.IsLogicalCenterEmpty(), 1);
    painter.SetLogicalCenter(1.0, DBL_MAX);
    EXPECT_EQ(painter.IsLogicalCenterEmpty(), 0);
    painter.FitToWindow();
    EXPECT_EQ(painter.IsLogicalCenterEmpty(), 1);
}

TEST(CKPainterView, ZoomSteps)
{
    CKPainter painter;
    painter.SetScale(0.0015);
    EXPECT_EQ(painter.ZoomOutScale(2.0, 0), 0.0015);
    EXPECT_EQ(painter.GetScale(), 0.0015) << "0.00075 is below the limit";
    EXPECT_EQ(painter.ZoomOutScale(2.0, 1), 0.0015);
    EXPECT_EQ(painter.GetScale(), 0.00075);
    painter.SetScale(0.002);
    painter.ZoomOutScale(2.0, 0);
    EXPECT_EQ(painter.GetScale(), 0.001) << "the limit itself is allowed";
    EXPECT_EQ(painter.ZoomInScale(1e12), 0.001);
    EXPECT_EQ(painter.GetScale(), 1e9);
}

struct FitCase
{
    const char* why;
    double width, height;
    double scale; // for 800 x 600 pixels, 4 pixels per mm, ratio 0.9; 0: nothing changes
};

const FitCase kFits[] = {
    {"wide: 800 / (4 x 100) x 0.9", 100, 50, 800.0 / 400 * 0.9},
    {"high: 600 / (4 x 100) x 0.9", 50, 100, 600.0 / 400 * 0.9},
    {"no width", 0, 10, 600.0 / 40 * 0.9},
    {"no height", 10, 0, 600.0 / 40 * 0.9},
    {"neither", 0, 0, 0},
};

TEST(CKPainterView, FitsAnArea)
{
    for (const FitCase& c : kFits) {
        CKPainter painter;
        PlaceView(painter, 4.0);
        painter.SetScale(77.0);
        painter.ZoomArea(800, 600, 3.0, -2.0, c.width, c.height, 0.9);
        EXPECT_EQ(painter.GetScale(), c.scale ? c.scale : 77.0) << c.why;
        EXPECT_EQ(LogicalCenter(painter), c.scale ? XY(3, -2) : XY(0, 0)) << c.why;
        EXPECT_EQ(painter.GetLogicalScreenRight() > 0.0, c.scale != 0.0) << c.why;
    }
}

TEST(CKPainterView, FitsCornersInAnyOrder)
{
    const float orders[][4] = {{5, 1, 1, 3}, {1, 3, 5, 1}, {1, 1, 5, 3}, {5, 3, 1, 1}};
    for (const auto& o : orders) {
        CKPainter painter;
        PlaceView(painter, 1.0);
        painter.ZoomAreaByMinMax(40, 40, o[0], o[1], o[2], o[3], 1.0);
        EXPECT_EQ(LogicalCenter(painter), XY(3, 2));
        EXPECT_EQ(painter.GetScale(), 10.0); // 40 pixels for an extent of 4
    }
}

TEST(CKPainterView, FitsAPixelBoxMirroredOrNot)
{
    for (int mirror = 0; mirror < 2; ++mirror) {
        CKPainter painter;
        PlaceView(painter, 4.0, 400, 300);
        painter.SetBoardMirrorX(mirror);
        painter.SetLogicalCenter(mirror ? -50.0 : 50.0, 20.0);
        const KPointD board = painter.GetLogicalCoordFromPhysicalCoord(500, 200);
        painter.ZoomAreaByPhysicalSize(800, 600, 500, 200, 80, 40, 1.0);
        EXPECT_EQ(At(painter.GetTranslatedPhysicalCoord(board.x, board.y)), XY(400, 300)) << "mirror " << mirror;
        EXPECT_EQ(painter.GetScale(), 10.0); // 80 pixels, that is 20 mm, now fill 800
    }
}

} // namespace
