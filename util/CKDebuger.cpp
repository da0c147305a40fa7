#include "util/CKDebuger.h"

#include <afxwin.h>

#include <cmath>
#include <iterator>
#include <time.h>

namespace {

/// The process clock in the platform's ticks, of which a millisecond is one.
LONG Now()
{
    return LONG(DWORD(clock()));
}

// Sums and differences that wrap around, as the clock's readings do.
LONG Plus(LONG a, LONG b)
{
    return LONG(DWORD(a) + DWORD(b));
}

LONG Minus(LONG a, LONG b)
{
    return LONG(DWORD(a) - DWORD(b));
}

constexpr COLORREF kColors[] = {0x0000FF, 0x00FF00, 0xFF0000, 0x00FFFF, 0xFFFF00, 0xFF00FF,
                                0x0096FF, 0x9600FF, 0x00FF96, 0x96FF00, 0xFF0096, 0xFF9600};
constexpr COLORREF kDarkGrey = 0x323232;

} // namespace

CKDebuger::CKDebuger()
{
    InitTimes(1);
}

CKDebuger::CKDebuger(int n)
{
    InitTimes(n);
}

CKDebuger::CKDebuger(const CKDebuger& other)
{
    *this = other;
}

CKDebuger& CKDebuger::operator=(const CKDebuger& other)
{
    if (this != &other) {
        m_starts.Copy(other.m_starts);
        m_totals.Copy(other.m_totals);
    }
    return *this;
}

void CKDebuger::InitTimes(int n)
{
    m_starts.RemoveAll();
    m_totals.RemoveAll();
    for (int k = 1; k <= n; ++k) {
        LONG start = Now(), total = 0;
        m_starts.Add(start);
        m_totals.Add(total);
    }
}

void CKDebuger::StartTime(int k)
{
    if (k <= m_starts.GetSize())
        m_starts.ElementAt(INT_PTR(k) - 1) = Now();
}

void CKDebuger::AddElapsedTime(int k)
{
    if (k > m_starts.GetSize())
        return;
    LONG& total = m_totals.ElementAt(INT_PTR(k) - 1);
    total = Plus(total, GetElapsedTime(k));
}

LONG CKDebuger::GetElapsedTime(int k)
{
    return k >= 1 && k <= m_starts.GetSize() ? Minus(Now(), m_starts[INT_PTR(k) - 1]) : 0;
}

float CKDebuger::GetElapsedTimeForSecond(int k)
{
    return float(double(GetElapsedTime(k)) / 1000.0);
}

LONG CKDebuger::GetElapsedTotalTime(int k)
{
    return k <= m_totals.GetSize() ? m_totals[INT_PTR(k) - 1] : 0;
}

int CKDebuger::IsSameLocation(double x1, double y1, double x2, double y2, double tolerance)
{
    return tolerance >= std::fabs(x2 - x1) && tolerance >= std::fabs(y2 - y1) ? 1 : 0;
}

CString CKDebuger::GetRGBString(unsigned long color)
{
    CString text;
    text.Format("R:%i G:%i B:%i", int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
    return text;
}

COLORREF CKDebuger::GetDebugColor(int index)
{
    const int remainder = index % int(std::size(kColors)); // has the sign of the index
    return remainder < 0 ? kDarkGrey : kColors[remainder];
}

void CKDebuger::ShowMessageBox(CString text)
{
    AfxMessageBox(text, 0, 0);
}

void CKDebuger::ShowMessageBox(double value)
{
    CString text;
    text.Format("%f", value);
    AfxMessageBox(text, 0, 0);
}
