#include "digests/Digest.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace digests {

namespace {

constexpr const char* kFile = KOLM_SOURCE_DIR "/tests/digests/digests.txt";

/// Each line is a group, sixteen hexadecimal digits and a name, which may hold spaces.
Record Recorded(const std::string& wantedGroup)
{
    Record record;
    std::ifstream in(kFile);
    std::string group, digits, name;
    while (in >> group >> digits && std::getline(in >> std::ws, name)) {
        if (group == wantedGroup)
            record[name] = std::strtoull(digits.c_str(), nullptr, 16);
    }
    return record;
}

std::string Line(const std::string& group, const std::string& name, uint64_t digest)
{
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(digest));
    return group + " " + digits + " " + name + "\n";
}

void Append(const std::string& group, const Record& record)
{
    const char* const path = std::getenv("KOLM_DIGESTS_OUT");
    if (!path)
        return;
    std::ofstream out(path, std::ios::app);
    for (const auto& [name, digest] : record)
        out << Line(group, name, digest);
}

/// The functions of the C library that results go through.
Record LibraryFunctions()
{
    Digest digest;
    Numbers numbers(1);
    for (int i = 0; i < 20000; ++i) {
        const double x = i % 2 ? numbers.Real(10) : numbers.Magnitude(-30, 30);
        const double y = i % 2 ? numbers.Real(10) : numbers.Magnitude(-30, 30);
        const double unit = numbers.Real(1);
        for (double value : {std::sin(x), std::cos(x), std::tan(x), std::atan2(y, x), std::hypot(x, y), std::asin(unit),
                             std::fmod(x, y), std::pow(10.0, numbers.Whole(-20, 20))})
            digest.Add(value);
        for (float value :
             {std::acos(float(unit)), std::sin(float(x)), std::cos(float(x)), std::hypot(float(x), float(y))})
            digest.Add(value);
    }
    return {{"functions", digest.Value()}};
}

} // namespace

void ExpectRecorded(const std::string& group, const Record& actual)
{
    static const Record library = LibraryFunctions();
    Append("library", library);
    Append(group, actual);
    const Record recordedLibrary = Recorded("library");
    ASSERT_EQ(recordedLibrary.size(), 1u) << kFile;
    if (library != recordedLibrary)
        GTEST_SKIP() << "the C library rounds otherwise than where the digests were recorded; its own line would be\n"
                     << Line("library", "functions", library.at("functions"));
    const Record recorded = Recorded(group);
    for (const auto& [name, digest] : actual) {
        const auto found = recorded.find(name);
        EXPECT_TRUE(found != recorded.end() && found->second == digest) << "now " << Line(group, name, digest);
    }
    for (const auto& [name, digest] : recorded)
        EXPECT_EQ(actual.count(name), 1u) << "left over: " << Line(group, name, digest);
}

} // namespace digests
