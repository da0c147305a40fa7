/// Sweeps that refuse every allocation of an operation, one after the other.
#pragma once

#include "failures/FailingMemory.h"

#include <afxwin.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <string>

namespace failures {

enum class Ending
{
    Finished,  ///< without an exception
    Exception, ///< std::bad_alloc of what is made with new, CMemoryException of arrays, texts and files
};

/// Any other exception passes and fails the test.
inline Ending Attempt(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const std::bad_alloc&) {
        return Ending::Exception;
    } catch (CMemoryException* e) {
        e->Delete();
        return Ending::Exception;
    }
    return Ending::Finished;
}

/// Where files lie in memory: thousands of them are made, and a disk would be waited for.
inline std::string FolderForManyFiles()
{
    return std::filesystem::is_directory("/dev/shm") ? "/dev/shm/" : testing::TempDir();
}

/// Refuses each allocation of `operation` in turn, alone and together with all that follow. After each: no object and
/// no block more than before, and `works` succeeds.
inline void RefuseEach(const char* what, const std::function<void()>& operation, const std::function<bool()>& works)
{
    ASSERT_TRUE(works()) << what;
    ASSERT_TRUE(works()) << what; // whatever is kept for the next time is there now
    {
        const FailingAllocation failing(1); // the first exception of its kind leaves a block with the runtime
        Attempt(operation);
    }
    ASSERT_TRUE(works()) << what;
    const DWORD objects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const size_t blocks = BlocksAlive();
    for (const bool all : {false, true}) {
        size_t n = 1;
        for (bool happened = true; happened; ++n) {
            ASSERT_LT(n, 100000u) << what;
            {
                FailingAllocation failing(n, all);
                const Ending ending = Attempt(operation);
                happened = failing.Happened();
                if (!happened) {
                    EXPECT_EQ(ending, Ending::Finished) << what << " with enough memory";
                }
            }
            ASSERT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), objects)
                << what << ", allocation " << n << (all ? " and later" : "");
            ASSERT_EQ(BlocksAlive(), blocks) << what << ", allocation " << n << (all ? " and later" : "");
            ASSERT_TRUE(works()) << what << ", after allocation " << n << (all ? " and later" : "");
        }
        EXPECT_GT(n, 2u) << what << " allocates nothing";
    }
}

} // namespace failures
