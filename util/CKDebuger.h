#pragma once

#include "KolmApi.h"

#include <afx.h>
#include <afxtempl.h>

/// Tools for developers of a host: numbered stopwatches, a tolerance test for positions, texts and colours for marking
/// things, message boxes.
///
/// Timers are numbered from 1. Times are milliseconds of the process clock, kept as 32-bit numbers that wrap around
/// after 24.8 days; differences stay right across the wrap. A timer number above the number of timers is ignored and
/// gives 0. Numbers of 0 and below give 0 where time is read since the last start, and raise the invalid-argument
/// exception elsewhere.
class KOLM_API CKDebuger
{
public:
    CKDebuger();               ///< one timer, started
    explicit CKDebuger(int n); ///< see InitTimes
    /// @{
    /// Takes over the number of timers and their readings, and measures on its own from there.
    CKDebuger(const CKDebuger& other);
    CKDebuger& operator=(const CKDebuger& other);
    /// @}
    ~CKDebuger() = default;

    /// Replaces all timers by n new ones, started now in turn with a total of 0. For n below 1 there are none.
    void InitTimes(int n);
    void StartTime(int k); ///< from now on; the total stays
    /// Adds the time since the last start to the total. The timer runs on from that start: without a new one, a second
    /// call adds the same stretch again.
    void AddElapsedTime(int k);

    LONG GetElapsedTime() { return GetElapsedTime(1); } ///< since the start of timer 1
    LONG GetElapsedTime(int k);                         ///< since the last start of timer k
    /// GetElapsedTime() in seconds.
    float GetElapsedTimeForSecond() { return GetElapsedTimeForSecond(1); }
    float GetElapsedTimeForSecond(int k); ///< GetElapsedTime(k) in seconds
    LONG GetElapsedTotalTime(int k);      ///< what AddElapsedTime has summed up

    /// 1 when x and y each differ by at most the tolerance, borders included: a square, not a circle. Else 0, also when
    /// anything is NaN or the positions lie at the same infinity.
    static int IsSameLocation(double x1, double y1, double x2, double y2, double tolerance);

    /// A COLORREF value as "R:64 G:128 B:255"; bits above the lower 24 are ignored.
    static CString GetRGBString(unsigned long color);
    /// One of twelve colours that are easily told apart, repeating with the index; dark grey for every negative index
    /// but those that 12 divides.
    static COLORREF GetDebugColor(int index);

    /// @{
    /// Shows a text, or a number with six decimals, in a box with an OK button; returns when it is closed.
    static void ShowMessageBox(CString text);
    static void ShowMessageBox(double value);
    /// @}

private:
    CArray<LONG, LONG&> m_starts; ///< of timer k at k - 1: the clock when it was started
    CArray<LONG, LONG&> m_totals; ///< as long as m_starts
};
