/// One digest for each function of CKMath, over a million results in all.
#include "digests/Digest.h"
#include "entities/CKGeomArc.h"
#include "foundation/CKRectD.h"
#include "foundation/CKRectF.h"
#include "math/CKMath.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <fstream>
#include <limits>
#include <memory>
#include <regex>
#include <tuple>

namespace digests {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The arguments of one call. Small whole numbers make equal points, parallel lines, tangents and shared ends common.
class Arguments
{
public:
    explicit Arguments(uint64_t number) : m_numbers(number), m_kind(int(number % 8)) {}

    double Coordinate()
    {
        static const double kSpecial[] = {0.0,   -0.0,    kNaN,   kInfinity, -kInfinity,    1e300,  -1e300,
                                          1e154, DBL_MAX, 5e-324, 0x1p31,    -2147483648.5, 1e-160, 0.5};
        switch (m_kind) {
        case 0:
        case 1:
            return m_numbers.Whole(-2, 2);
        case 2:
        case 3:
            return m_numbers.Whole(-7, 7);
        case 4:
            return m_numbers.Real(10);
        case 5:
            return m_numbers.Whole(-40, 40) * 0.127;
        case 6:
            return m_numbers.Magnitude(-17, 17);
        default:
            return m_numbers.OneIn(4) ? m_numbers.OneOf(kSpecial) : m_numbers.Real(100);
        }
    }
    /// An angle or a coordinate. Far negative angles are walked up turn by turn, so few are taken from there.
    float Single()
    {
        static const float kSpecial[] = {0.0f,   -0.0f,   float(kNaN), float(kInfinity), -float(kInfinity), 3e38f,
                                         -3e38f, -1e-30f, 1e-45f,      359.99997f,       -8589934592.0f,    720.0f};
        if (m_kind == 7 && m_numbers.OneIn(4))
            return m_numbers.OneOf(kSpecial);
        if (m_numbers.OneIn(3))
            return float(m_numbers.Whole(-8, 8) * 45);
        return m_kind == 4 ? float(m_numbers.Real(400)) : float(Coordinate());
    }
    int Int()
    {
        static const int kSpecial[] = {INT_MIN, INT_MAX, -100000, 65536, 30, -30};
        if (m_kind == 7 && m_numbers.OneIn(3))
            return m_numbers.OneOf(kSpecial);
        return m_numbers.OneIn(4) ? m_numbers.Whole(-12, 12) : m_numbers.Whole(-1, 1);
    }

private:
    Numbers m_numbers;
    int m_kind;
};

/// An argument of one type: made, passed, and hashed afterwards when the function can write it.
template <class T>
struct Holder;

template <>
struct Holder<double>
{
    double value;
    explicit Holder(Arguments& arguments) : value(arguments.Coordinate()) {}
    double& Pass() { return value; }
    void AddTo(Digest& digest) const { digest.Add(value); }
};
template <>
struct Holder<float>
{
    float value;
    explicit Holder(Arguments& arguments) : value(arguments.Single()) {}
    float& Pass() { return value; }
    void AddTo(Digest& digest) const { digest.Add(value); }
};
template <>
struct Holder<int>
{
    int value;
    explicit Holder(Arguments& arguments) : value(arguments.Int()) {}
    int& Pass() { return value; }
    void AddTo(Digest& digest) const { digest.Add(value); }
};
template <class T>
struct Holder<T&> : Holder<T>
{
    using Holder<T>::Holder;
};

/// Records to be filled start with a mark, so that "left alone" is told from "written".
template <>
struct Holder<KPointD*>
{
    KPointD value = {7.25, 7.25};
    explicit Holder(Arguments&) {}
    KPointD* Pass() { return &value; }
    void AddTo(Digest& digest) const { digest.Add(value); }
};
template <>
struct Holder<KTwoPointD*>
{
    KTwoPointD value = {7.25, 7.25, 7.25, 7.25};
    explicit Holder(Arguments&) {}
    KTwoPointD* Pass() { return &value; }
    void AddTo(Digest& digest) const { digest.Add(value); }
};

template <class Rect>
struct RectHolder
{
    Rect value;
    explicit RectHolder(Arguments& arguments)
    {
        using Edge = decltype(value.GetLeft());
        Edge edges[4];
        for (Edge& edge : edges)
            edge = Edge(arguments.Coordinate());
        value.Set(edges[0], edges[1], edges[2], edges[3]);
    }
    Rect& Pass() { return value; }
    void AddTo(Digest&) const {}
};
template <>
struct Holder<CKRectD> : RectHolder<CKRectD>
{
    using RectHolder::RectHolder;
};
template <>
struct Holder<CKRectF> : RectHolder<CKRectF>
{
    using RectHolder::RectHolder;
};
template <class Rect>
struct Holder<Rect*> : RectHolder<Rect>
{
    using RectHolder<Rect>::RectHolder;
    Rect* Pass() { return &this->value; }
};

template <class T>
void AddResult(Digest& digest, const T& result)
{
    digest.Add(result);
}
void AddResult(Digest& digest, CKGeomArc* result)
{
    const std::unique_ptr<CKGeomArc> arc(result);
    for (double value : {arc->GetStartX(), arc->GetStartY(), arc->GetEndX(), arc->GetEndY(), arc->GetCenterX(),
                         arc->GetCenterY(), arc->GetThickness(), double(arc->GetDirection())})
        digest.Add(value);
}

constexpr int kCalls = 12500; // of each function

template <class Result, class... Types>
uint64_t DigestOf(Result (*function)(Types...))
{
    Digest digest;
    for (int i = 0; i < kCalls; ++i) {
        Arguments arguments{uint64_t(i)};
        std::tuple<Holder<Types>...> holders{Holder<Types>(arguments)...}; // braces: from left to right
        std::apply(
            [&](auto&... holder) {
                if constexpr (std::is_void_v<Result>)
                    function(holder.Pass()...);
                else
                    AddResult(digest, function(holder.Pass()...));
                (holder.AddTo(digest), ...);
            },
            holders);
    }
    return digest.Value();
}

struct Function
{
    const char* name;
    uint64_t (*digest)();
};

// clang-format off
#define KOLM_FUNCTION(name) {#name, [] { return DigestOf(&CKMath::name); }}
#define KOLM_OVERLOAD(result, name, ...) \
    {#name "(" #__VA_ARGS__ ")", [] { return DigestOf(static_cast<result (*)(__VA_ARGS__)>(&CKMath::name)); }}

const Function kFunctions[] = {
    KOLM_FUNCTION(Abs),
    KOLM_OVERLOAD(int, GetRoundedOff, double),
    KOLM_OVERLOAD(double, GetRoundedOff, double, int),
    KOLM_FUNCTION(GetCrossProduct),
    KOLM_FUNCTION(GetFactorial),
    KOLM_FUNCTION(SetMinMax),
    KOLM_FUNCTION(GetDegree),
    KOLM_FUNCTION(GetRadian),
    KOLM_FUNCTION(GetPositiveAngle),
    KOLM_FUNCTION(GetSweepAngle),
    KOLM_FUNCTION(GetLineAngle),
    KOLM_FUNCTION(GetAngleFrom3Points),
    KOLM_FUNCTION(GetReversedDirection),
    KOLM_FUNCTION(ReverseDirection),
    KOLM_OVERLOAD(float, GetDistance, float, float, float, float),
    KOLM_OVERLOAD(double, GetDistance, double, double, double, double),
    KOLM_OVERLOAD(double, GetDistance, double, double, double, double, double, double),
    KOLM_OVERLOAD(double, GetDistance, double, double, double, double, double, double, double, double),
    KOLM_FUNCTION(GetLineXOrLineY),
    KOLM_OVERLOAD(int, GetRelativeDirection, double, double, double, double, double, double),
    KOLM_FUNCTION(IsIntersectLineToLine),
    KOLM_OVERLOAD(KPointD, GetRotatedPoint, double, double, float),
    KOLM_OVERLOAD(KPointF, GetRotatedPoint, float, float, float),
    KOLM_OVERLOAD(KPointD, GetRotatedPoint, double, double, double, double, float),
    KOLM_OVERLOAD(KPointF, GetRotatedPoint, float, float, float, float, float),
    KOLM_OVERLOAD(KPoint, GetRotatedPoint, int, int, float),
    KOLM_OVERLOAD(KPoint, GetRotatedPoint, int, int, int, int, float),
    KOLM_FUNCTION(GetAngleToPoint),
    KOLM_OVERLOAD(void, TranslatePoint, double&, double&, float, int),
    KOLM_OVERLOAD(void, TranslatePoint, float&, float&, float, int),
    KOLM_OVERLOAD(void, TranslatePoints, double&, double&, double&, double&, float, int),
    KOLM_OVERLOAD(void, TranslatePoints, float&, float&, float&, float&, float, int),
    KOLM_OVERLOAD(void, TranslateArc, double&, double&, double&, double&, double&, double&, int&, float, int),
    KOLM_OVERLOAD(void, TranslateArc, float&, float&, float&, float&, float&, float&, int&, float, int),
    KOLM_FUNCTION(GetLibraryLocation),
    KOLM_FUNCTION(SnapToGrid),
    KOLM_FUNCTION(GetDistanceInfiniteLinePoint),
    KOLM_FUNCTION(GetDistanceLinePoint),
    KOLM_OVERLOAD(KPointD, GetDistancedLinePoint, double, double, double, double, double),
    KOLM_OVERLOAD(KPointD, GetDistancedLinePoint, double, double, double, double, double, double, double),
    KOLM_FUNCTION(GetSymmetricPoint),
    KOLM_FUNCTION(GetRightAngleDistancedPoint),
    KOLM_FUNCTION(GetRightAngleDistancedPointToPoint),
    KOLM_FUNCTION(GenerateArcFromThreePoints),
    KOLM_FUNCTION(IsAngleInArc),
    KOLM_FUNCTION(IsPointInArcAngle),
    KOLM_FUNCTION(IsPointInteriorAngleOfArc),
    KOLM_FUNCTION(IsPointInIcecreamHeadOfArc),
    KOLM_FUNCTION(IsInCircle),
    KOLM_FUNCTION(IsOnCircle),
    KOLM_OVERLOAD(int, IsOnArc, double, double, double, double, double, double, double, double, double, int),
    KOLM_OVERLOAD(int, IsOnArc, double, double, double, double, double, double, double, double, double, int, float, int),
    KOLM_FUNCTION(IsInArc),
    KOLM_FUNCTION(IsPointOnLine),
    KOLM_FUNCTION(GetLinesIntersectedPoint),
    KOLM_FUNCTION(GetInfiniteLinesIntersectedPoint),
    KOLM_OVERLOAD(int, IsInRectangle, double, double, double, double, double, double),
    KOLM_OVERLOAD(int, IsInRectangle, double, double, double, double, double, double, float, int),
    KOLM_OVERLOAD(int, IsInRectangle, double, double, CKRectD*, double),
    KOLM_OVERLOAD(int, IsInRectangle, double, double, CKRectF*, double),
    KOLM_OVERLOAD(int, IsIntersectRectangle, double, double, double, double, double, double, double, double),
    KOLM_OVERLOAD(int, IsIntersectRectangle, float, float, float, float, float, float, float, float),
    KOLM_OVERLOAD(int, IsToCheck, CKRectF&, CKRectF&, double),
    KOLM_OVERLOAD(int, IsToCheck, CKRectD&, CKRectD&, double),
    KOLM_FUNCTION(IsIntersectLineToRectangle),
    KOLM_FUNCTION(IsIntersectCircleToRectangle),
    KOLM_FUNCTION(IsContactLineToCircle),
    KOLM_FUNCTION(IsContactLineToArc),
    KOLM_FUNCTION(IsContactCircleOutlineToCircleOutline),
    KOLM_FUNCTION(IsContactArcToArc),
    KOLM_FUNCTION(IsContactInfiniteLineToInfiniteLine),
    KOLM_FUNCTION(IsIntersectArcToRectangle),
    KOLM_FUNCTION(IsRectangleIncludeCircle),
    KOLM_FUNCTION(GetDistancePointToLine),
    KOLM_OVERLOAD(double, GetDistancePointToArc, double, double, int, double, double, double, double, double, double),
    KOLM_OVERLOAD(double, GetDistancePointToArc, KPointD*, double, double, int, double, double, double, double, double,
                  double, double),
    KOLM_OVERLOAD(int, GetRelativeDirection, double, double, double, double, double, double, double, int, double,
                  double),
    KOLM_OVERLOAD(double, GetDistancePointsOfLineToLine, KTwoPointD*, double, double, double, double, double, double,
                  double, double),
    KOLM_OVERLOAD(double, GetDistancePointsOfLineToLine, KTwoPointD*, double, double, double, double, double, double,
                  double, double, double, double),
    KOLM_FUNCTION(GetDistancePointsOfLineToArc),
    KOLM_FUNCTION(GetDistancePointsOfArcToArc),
};
// clang-format on

TEST(Digests, EveryFunctionOfCKMath)
{
    Record record;
    for (const Function& function : kFunctions)
        record[function.name] = function.digest();
    ExpectRecorded("math", record);
}

/// How often each function is declared in the header, and how often it stands in the table.
TEST(Digests, TheTableHoldsAllOverloads)
{
    std::map<std::string, int> declared, listed;
    std::ifstream header(KOLM_SOURCE_DIR "/math/CKMath.h");
    const std::regex declaration(R"(^    static [\w*]+\*? ?(\w+)\()");
    for (std::string line; std::getline(header, line);) {
        std::smatch match;
        if (std::regex_search(line, match, declaration))
            ++declared[match[1]];
    }
    for (const Function& function : kFunctions) {
        const std::string name = function.name;
        ++listed[name.substr(0, name.find('('))];
    }
    EXPECT_EQ(listed, declared);
    EXPECT_GT(std::size(kFunctions) * kCalls, 1000000u);
}

} // namespace
} // namespace digests
