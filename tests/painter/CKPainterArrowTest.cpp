#include "PainterFixture.h"

#include <cmath>

namespace {

struct Segment
{
    double x1, y1, x2, y2, width;
    int flag;
};

/// Records what the arrows of the world-transform variants hand to the virtual line.
class LineRecorder : public CKPainter
{
public:
    void DrawLine(CDC*, COLORREF color, double x1, double y1, double x2, double y2, double width, int flag) override
    {
        EXPECT_EQ(color, 0x00FF00u);
        lines.push_back({x1, y1, x2, y2, width, flag});
    }
    std::vector<Segment> Take() { return std::move(lines); }

private:
    std::vector<Segment> lines;
};

// Head bases come from a rotation by a single-precision angle, off by less than 1e-6 over 10 mm.
constexpr double kTolerance = 1e-6;

struct ArrowCase
{
    const char* why;
    double x2, y2; // the shaft starts at (0, 0)
    float limit;   // of WithPenWidth; 0: DrawArrow
    double head;
};

const ArrowCase kArrows[] = {
    {"long: heads of 1 mm", 10, 0, 0, 1.0},
    {"short: a quarter", 2, 0, 0, 0.5},
    {"almost 4 mm is still short", 3.6, 0, 0, 0.9},
    {"sloped", 3, 4, 0, 1.0},
    {"downward", 0, -8, 0, 1.0},
    {"limit 8 on 10 mm", 10, 0, 8.0f, 2.0},
    {"limit 8 on 6 mm", 6, 0, 8.0f, 1.5},
};

/// Wings from `tip` at 20 degrees to the way back to `foot`: first to the left of that way, then to its right.
void ExpectHead(const Segment* wings, KPointD foot, KPointD tip, double head, const char* why)
{
    const double back = std::atan2(foot.y - tip.y, foot.x - tip.x);
    for (int i = 0; i < 2; ++i) {
        const double angle = back + (i == 0 ? 1 : -1) * 20.0 / 180.0 * std::acos(-1.0);
        EXPECT_EQ(wings[i].x1, tip.x) << why;
        EXPECT_EQ(wings[i].y1, tip.y) << why;
        EXPECT_NEAR(wings[i].x2, tip.x + head * std::cos(angle), kTolerance) << why << ", wing " << i;
        EXPECT_NEAR(wings[i].y2, tip.y + head * std::sin(angle), kTolerance) << why << ", wing " << i;
    }
}

TEST(CKPainterArrow, ShaftThenHeads)
{
    for (const ArrowCase& c : kArrows) {
        for (int heads = 0; heads < 4; ++heads) {
            LineRecorder painter;
            const int atStart = heads & 1;
            const int atEnd = c.limit == 0.0f || (heads & 2);
            if (c.limit == 0.0f)
                painter.DrawArrow(nullptr, 0x00FF00, 0, 0, c.x2, c.y2, atStart);
            else
                painter.DrawArrowWithPenWidth(nullptr, 0x00FF00, 0, 0, c.x2, c.y2, 0.3, atStart, atEnd, c.limit);
            const std::vector<Segment> lines = painter.Take();
            ASSERT_EQ(lines.size(), size_t(1 + 2 * atEnd + 2 * atStart)) << c.why;
            for (const Segment& line : lines) {
                EXPECT_EQ(line.width, c.limit == 0.0f ? 0.0 : 0.3) << c.why;
                EXPECT_EQ(line.flag, c.limit == 0.0f ? 0 : 1) << c.why;
            }
            EXPECT_EQ(lines[0].x2, c.x2);
            EXPECT_EQ(lines[0].y2, c.y2);
            if (atEnd)
                ExpectHead(&lines[1], {0, 0}, {c.x2, c.y2}, c.head, c.why);
            if (atStart)
                ExpectHead(&lines[1 + 2 * atEnd], {c.x2, c.y2}, {0, 0}, c.head, c.why);
        }
    }
}

TEST(CKPainterArrow, DevicePixels)
{
    Canvas canvas;
    CKPainter painter;
    PlaceView(painter, 100.0);
    // The wings of a 10 mm arrow end at (9.0603, -0.3420) and then (9.0603, 0.3420): 20 degrees, 1 mm.
    painter.DrawArrowNoWorldTransform(canvas.Get(), 0x00FF00, 0, 0, 10, 0, 0);
    const std::string lines[] = {"MoveTo 0 0\nLineTo 1000 0\n", "MoveTo 1000 0\nLineTo 906 34\n",
                                 "MoveTo 1000 0\nLineTo 906 -34\n"};
    std::string expected[2];
    for (const std::string& line : lines) {
        expected[0] += Stroked(line, 0, "0x00FF00");
        expected[1] += Stroked(line, 5, "0x00FF00");
    }
    EXPECT_EQ(canvas.TakeTrace(), expected[0]);
    painter.DrawArrowNoWorldTransformWithPenWidth(canvas.Get(), 0x00FF00, 0, 0, 10, 0, 0.05, 0, 1, 4.0f);
    EXPECT_EQ(canvas.TakeTrace(), expected[1]);
}

TEST(CKPainterArrow, CoincidingEndsDrawNothing)
{
    Canvas canvas;
    CKPainter painter;
    painter.DrawArrow(canvas.Get(), 1, 2, 3, 2, 3, 1);
    painter.DrawArrowNoWorldTransform(canvas.Get(), 1, 2, 3, 2, 3, 1);
    painter.DrawArrowWithPenWidth(canvas.Get(), 1, 2, 3, 2, 3, 1, 1, 1, 4);
    painter.DrawArrowNoWorldTransformWithPenWidth(canvas.Get(), 1, 2, 3, 2, 3, 1, 1, 1, 4);
    painter.DrawArrow(canvas.Get(), 1, 2, 3, NAN, 3, 1);
    EXPECT_EQ(canvas.TakeTrace(), "");
}

} // namespace
