#include "util/CKDebuger.h"

#include "Raises.h"

#include <afxwin.h>

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace {

void Sleep(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

/// The machine may take its time, but never goes faster than the clock; readings are whole milliseconds.
constexpr LONG kLate = 500;
constexpr LONG kTick = 1;

TEST(CKDebuger, AddsUpStretches)
{
    CKDebuger timer;
    EXPECT_EQ(timer.GetElapsedTotalTime(1), 0);
    timer.StartTime(1);
    Sleep(30);
    timer.AddElapsedTime(1);
    Sleep(30); // not measured: a new start follows
    timer.StartTime(1);
    Sleep(20);
    timer.AddElapsedTime(1);
    const LONG once = timer.GetElapsedTotalTime(1);
    EXPECT_GE(once, 50 - 2 * kTick);
    EXPECT_LT(once, 50 + kLate);
    timer.AddElapsedTime(1); // the same start once more
    EXPECT_GE(timer.GetElapsedTotalTime(1), once + 20 - kTick);
}

TEST(CKDebuger, MeasuresEachTimerOnItsOwn)
{
    CKDebuger timers(2);
    Sleep(20);
    timers.StartTime(2);
    const LONG second = timers.GetElapsedTime(2);
    const LONG first = timers.GetElapsedTime(1);
    EXPECT_GE(first - second, 20 - kTick);
    EXPECT_GE(timers.GetElapsedTime(), first);
    const float seconds = timers.GetElapsedTimeForSecond();
    EXPECT_GE(seconds, float(first / 1000.0));
    EXPECT_LT(seconds, float((first + kLate) / 1000.0));
    EXPECT_LT(timers.GetElapsedTimeForSecond(2), seconds);

    const CKDebuger copy(timers);
    timers.InitTimes(1);
    EXPECT_LT(timers.GetElapsedTime(1), first);
    timers = copy;
    EXPECT_GE(timers.GetElapsedTime(1), first) << "a copy has its own start times";
}

TEST(CKDebuger, AnswersTimersThatAreNotThere)
{
    for (const int count : {-5, 0, 1}) {
        CKDebuger timers(count);
        const int above = count < 1 ? 1 : count + 1;
        for (const int k : {above, INT_MAX}) {
            timers.StartTime(k);
            timers.AddElapsedTime(k);
            EXPECT_EQ(timers.GetElapsedTotalTime(k), 0);
            EXPECT_EQ(timers.GetElapsedTime(k), 0);
            EXPECT_EQ(timers.GetElapsedTimeForSecond(k), 0.0f);
        }
        for (const int k : {0, -1, INT_MIN}) {
            EXPECT_TRUE(Raises<CInvalidArgException>([&] { timers.StartTime(k); })) << k;
            EXPECT_TRUE(Raises<CInvalidArgException>([&] { timers.AddElapsedTime(k); })) << k;
            EXPECT_TRUE(Raises<CInvalidArgException>([&] { timers.GetElapsedTotalTime(k); })) << k;
            EXPECT_EQ(timers.GetElapsedTime(k), 0) << k;
            EXPECT_EQ(timers.GetElapsedTimeForSecond(k), 0.0f) << k;
        }
    }
    EXPECT_EQ(CKDebuger(0).GetElapsedTime(), 0);
}

TEST(CKDebuger, ComparesLocationsInASquare)
{
    const double inf = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    const struct
    {
        const char* why;
        double x1, y1, x2, y2, tolerance;
        int expected;
    } cases[] = {
        {"a corner of the square counts", 0, 0, 0.5, -0.5, 0.5, 1},
        {"one coordinate too far", 0, 0, 0.5, 0.6, 0.5, 0},
        {"the other one", 3, 0, 2.4, 0, 0.5, 0},
        {"equal without tolerance", 1e300, -2, 1e300, -2, 0, 1},
        {"a negative tolerance takes nothing", 0, 0, 0, 0, -1, 0},
        {"not a number", nan, 0, 0, 0, 1, 0},
        {"nor as a tolerance", 0, 0, 0, 0, nan, 0},
        {"one infinity has no distance to itself", inf, 0, inf, 0, inf, 0},
        {"everything is within infinity", -1e308, 0, 1e308, 0, inf, 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CKDebuger::IsSameLocation(c.x1, c.y1, c.x2, c.y2, c.tolerance), c.expected) << c.why;
}

TEST(CKDebuger, TellsAndPicksColours)
{
    EXPECT_STREQ(CKDebuger::GetRGBString(0x00FF8040), "R:64 G:128 B:255");
    EXPECT_STREQ(CKDebuger::GetRGBString(0xFF000000ul), "R:0 G:0 B:0");

    const COLORREF colors[] = {RGB(255, 0, 0),   RGB(0, 255, 0),   RGB(0, 0, 255),   RGB(255, 255, 0),
                               RGB(0, 255, 255), RGB(255, 0, 255), RGB(255, 150, 0), RGB(255, 0, 150),
                               RGB(150, 255, 0), RGB(0, 255, 150), RGB(150, 0, 255), RGB(0, 150, 255)};
    for (int i = 0; i < 24; ++i)
        EXPECT_EQ(CKDebuger::GetDebugColor(i), colors[i % 12]) << i;
    for (const int index : {-1, -11, -13, INT_MIN}) // INT_MIN is 12 times a number less 8
        EXPECT_EQ(CKDebuger::GetDebugColor(index), RGB(50, 50, 50)) << index;
    EXPECT_EQ(CKDebuger::GetDebugColor(-12), RGB(255, 0, 0));
}

/// Notes the boxes instead of showing them.
class NotingApp : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT type, UINT helpContext) override
    {
        boxes.push_back(std::string(text) + "/" + std::to_string(type) + "/" + std::to_string(helpContext));
        return IDOK;
    }
    std::vector<std::string> boxes;
};

TEST(CKDebuger, ShowsMessages)
{
    NotingApp app;
    CKDebuger::ShowMessageBox("hello %d");
    CKDebuger::ShowMessageBox(-1.5);
    CKDebuger::ShowMessageBox(CString());
    EXPECT_EQ(app.boxes, (std::vector<std::string>{"hello %d/0/0", "-1.500000/0/0", "/0/0"}));
}

} // namespace
