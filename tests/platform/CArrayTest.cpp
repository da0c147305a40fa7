#include <afxcoll.h>
#include <afxtempl.h>

#include "Raises.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace {

/// An element that owns memory and is counted, so that a lost, doubled or unborn element shows.
struct Tracked
{
    explicit Tracked(int v = 0) : value(v) {}
    operator int() const { return value; }
    static int Alive() { return int(counter.use_count()) - 1; }

    static inline const std::shared_ptr<int> counter = std::make_shared<int>();
    int value;
    std::shared_ptr<int> share = counter;
};

template <class T>
void ExpectSame(const CArray<T, const T&>& array, const std::vector<int>& model, int step)
{
    ASSERT_EQ(array.GetSize(), INT_PTR(model.size())) << "step " << step;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        ASSERT_EQ(int(array[i]), model[size_t(i)]) << "step " << step << ", element " << i;
}

/// The same random changes to an array and to a std::vector, which are compared after each one.
template <class T>
void RunRandomOperations(unsigned seed)
{
    std::mt19937 random(seed);
    CArray<T, const T&> array;
    std::vector<int> model;
    for (int step = 0; step < 3000; ++step) {
        const int size = int(model.size());
        const int value = int(random() % 1000) + 1;
        const int at = int(random() % unsigned(size + 1));
        const int count = int(random() % 5);
        switch (random() % (size > 200 ? 12u : 10u)) {
        case 0:
        case 1:
            EXPECT_EQ(array.Add(T(value)), size);
            model.push_back(value);
            break;
        case 2:
            array.InsertAt(at, T(value), count);
            model.insert(model.begin() + at, size_t(count), value);
            break;
        case 3: // past the end: the array grows up to there
            array.InsertAt(size + count, T(value));
            model.resize(size_t(size + count), 0);
            model.push_back(value);
            break;
        case 4:
            if (size > 0) { // an element of its own, which moves while the array grows
                const int own = int(random() % unsigned(size));
                array.InsertAt(at, array[own], count);
                model.insert(model.begin() + at, size_t(count), int(model[size_t(own)]));
                array.Add(array[own]);
                model.push_back(int(model[size_t(own)]));
            }
            break;
        case 5: {
            const int removed = std::min(count, size - at);
            array.RemoveAt(at, removed);
            model.erase(model.begin() + at, model.begin() + at + removed);
            break;
        }
        case 6:
            array.SetAtGrow(at + count, T(value));
            if (at + count >= size)
                model.resize(size_t(at + count + 1), 0);
            model[size_t(at + count)] = value;
            break;
        case 7:
            array.SetSize(at + count, count);
            model.resize(size_t(at + count), 0);
            array.FreeExtra();
            break;
        case 8:
        case 9:
            if (size < 100) { // the whole array into itself
                const std::vector<int> copy = model;
                const int place = step % 2 ? size : at;
                if (step % 2)
                    EXPECT_EQ(array.Append(array), size);
                else
                    array.InsertAt(place, &array);
                model.insert(model.begin() + place, copy.begin(), copy.end());
            }
            break;
        case 10: {
            CArray<T, const T&> other;
            other.Copy(array);
            ExpectSame(other, model, step);
            break;
        }
        default:
            array.RemoveAll();
            model.clear();
            break;
        }
        ExpectSame(array, model, step);
        if (::testing::Test::HasFatalFailure())
            return;
        ASSERT_EQ(Tracked::Alive(), (std::is_same_v<T, Tracked> ? int(model.size()) : 0)) << "step " << step;
    }
}

TEST(CArray, BehavesAsAVector)
{
    for (unsigned seed = 1; seed <= 4; ++seed) {
        SCOPED_TRACE(seed);
        RunRandomOperations<int>(seed);
        RunRandomOperations<Tracked>(seed);
        EXPECT_EQ(Tracked::Alive(), 0);
    }
}

TEST(CArray, BadArgumentsRaiseAndChangeNothing)
{
    using List = CArray<int, int>;
    const struct
    {
        const char* why;
        void (*call)(List&);
    } cases[] = {
        {"index before the start", [](List& a) { a[-1] = 7; }},
        {"index at the end", [](List& a) { a.ElementAt(3) = 7; }},
        {"least index", [](List& a) { a.GetAt(INTPTR_MIN) = 7; }},
        {"SetAt does not grow", [](List& a) { a.SetAt(3, 7); }},
        {"SetAtGrow before the start", [](List& a) { a.SetAtGrow(-1, 7); }},
        {"negative size", [](List& a) { a.SetSize(-1); }},
        {"insertion before the start", [](List& a) { a.InsertAt(-1, 7); }},
        {"negative count of insertions", [](List& a) { a.InsertAt(0, 7, -1); }},
        {"no array to insert", [](List& a) { a.InsertAt(0, static_cast<List*>(nullptr)); }},
        {"removing one too many", [](List& a) { a.RemoveAt(1, 3); }},
        {"removing before the start", [](List& a) { a.RemoveAt(-1); }},
        {"removing a negative count", [](List& a) { a.RemoveAt(2, -1); }},
        {"index and count that overflow", [](List& a) { a.RemoveAt(1, INTPTR_MAX); }},
    };
    for (const auto& c : cases) {
        List array;
        for (int value : {1, 2, 3})
            array.Add(value);
        EXPECT_TRUE(Raises<CInvalidArgException>([&] { c.call(array); })) << c.why;
        ASSERT_EQ(array.GetSize(), 3) << c.why;
        EXPECT_TRUE(array[0] == 1 && array[1] == 2 && array[2] == 3) << c.why;
    }
}

TEST(CArray, SizesThatNoMemoryHasRaise)
{
    static volatile INT_PTR huge = INTPTR_MAX; // the compiler would warn of what the array has to refuse
    CArray<double, double> array;
    array.Add(1.5);
    void (*const calls[])(CArray<double, double>&) = {
        [](CArray<double, double>& a) { a.SetSize(huge); },
        [](CArray<double, double>& a) { a.SetAtGrow(huge, 1); },
        [](CArray<double, double>& a) { a.InsertAt(huge, 1); },
        [](CArray<double, double>& a) { a.InsertAt(0, 1, huge); },
    };
    for (const auto call : calls) {
        EXPECT_TRUE(Raises<CMemoryException>([&] { call(array); }));
        ASSERT_EQ(array.GetSize(), 1);
        EXPECT_EQ(array[0], 1.5);
    }
}

TEST(CArray, ArgumentTypesOfEveryKind)
{
    CArray<double, double&> byReference;
    double value = 2;
    byReference.Add(value);
    byReference.InsertAt(0, byReference[0]);
    byReference.SetAtGrow(4, value);
    EXPECT_EQ(byReference[1] + byReference[4], 4);
    EXPECT_EQ(byReference[3], 0);

    CArray<const char*, const char*> pointers;
    pointers.SetSize(2);
    EXPECT_EQ(pointers[1], nullptr) << "elements that nobody named are null";
    EXPECT_EQ((CArray<int>().GetData()), nullptr);
}

TEST(CArray, GrowingOneByOneMovesElementsRarely)
{
    CArray<int, int> array;
    int moves = 0;
    const int* before = nullptr;
    for (int i = 0; i < 100000; ++i) {
        array.Add(i);
        moves += array.GetData() != before;
        before = array.GetData();
    }
    EXPECT_LT(moves, 40) << "log 1.5 of 100000 is 28";
}

template <class Array>
void StoreAndLoad(Array& from, Array& to)
{
    CMemFile file;
    CArchive out(&file, CArchive::store);
    from.Serialize(out);
    out.Close();
    file.SeekToBegin();
    CArchive in(&file, CArchive::load);
    to.Serialize(in);
}

/// Goes to archives through a Serialize of its own.
struct Celsius
{
    Celsius() = default;
    explicit Celsius(double d) : degrees(d) {}
    Celsius(const Celsius& other) : degrees(other.degrees) {}
    Celsius& operator=(const Celsius&) = default;
    void Serialize(CArchive& ar)
    {
        float narrow = float(degrees);
        ar.IsStoring() ? ar << narrow : ar >> narrow;
        degrees = narrow;
    }
    double degrees = 0;
};

TEST(CArray, ArchivesEveryKindOfElement)
{
    CArray<double, double> numbers, numbersBack;
    for (int i = 0; i < 70000; ++i) // the count needs its long form, the bytes several steps
        numbers.Add(i * 0.5);
    numbersBack.Add(-1);
    StoreAndLoad(numbers, numbersBack);
    ASSERT_EQ(numbersBack.GetSize(), 70000);
    EXPECT_EQ(memcmp(numbersBack.GetData(), numbers.GetData(), 70000 * sizeof(double)), 0);

    CStringArray texts, textsBack;
    for (LPCSTR text : {"", "net", "GND"})
        texts.Add(text);
    StoreAndLoad(texts, textsBack);
    ASSERT_EQ(textsBack.GetSize(), 3);
    EXPECT_EQ(textsBack[2], "GND");

    CArray<Celsius> own, ownBack;
    own.Add(Celsius(20.5));
    StoreAndLoad(own, ownBack);
    ASSERT_EQ(ownBack.GetSize(), 1);
    EXPECT_EQ(ownBack[0].degrees, 20.5);

    CArray<int*, int*> pointers, pointersBack;
    pointers.Add(nullptr);
    EXPECT_TRUE(Raises<CNotSupportedException>([&] { StoreAndLoad(pointers, pointersBack); }));
}

TEST(CArray, ACountIsNotBelieved)
{
    const BYTE bytes[] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 1, 2, 3};
    CMemFile file(const_cast<BYTE*>(bytes), sizeof bytes);
    CArchive ar(&file, CArchive::load);
    CStringArray texts;
    EXPECT_EQ(ArchiveCause([&] { texts.Serialize(ar); }), CArchiveException::endOfFile);
    EXPECT_EQ(texts.GetSize(), 0);
}

} // namespace
