/// Objects named by letters, so that lists of pointers read as words; '-' is a null pointer.
#pragma once

#include "Raises.h"

#include <afxtempl.h>
#include <gtest/gtest.h>

#include <string>

struct Letter
{
    explicit Letter(char name) : name(name) {}
    ~Letter() { destroyed += name; }

    const char name;
    static inline std::string destroyed; ///< the letters that are gone, in the order in which they went
};

/// Appends new letters; what becomes of them is up to the list.
inline void Spell(CArray<Letter*, Letter*>& list, const std::string& word)
{
    for (char name : word)
        list.Add(name == '-' ? nullptr : new Letter(name));
}

/// Reads a list whose objects are alive.
inline std::string Word(const CArray<Letter*, Letter*>& list)
{
    std::string word;
    for (INT_PTR i = 0; i < list.GetSize(); ++i)
        word += list[i] ? list[i]->name : '-';
    return word;
}

/// Destroys what the test itself still owns and forgets what is gone.
inline void CleanUp(CArray<Letter*, Letter*>& list)
{
    for (INT_PTR i = 0; i < list.GetSize(); ++i)
        delete list[i];
    list.RemoveAll();
    Letter::destroyed.clear();
}

template <class List>
struct DeleteCase
{
    const char* why;
    const char* before;
    void (*operation)(List& list);
    bool raises;
    const char* destroyed; ///< in this order
    const char* after;

    void Run() const
    {
        List list;
        Spell(list, before);
        EXPECT_EQ(Raises<CInvalidArgException>([&] { operation(list); }), raises) << why;
        EXPECT_EQ(Letter::destroyed, destroyed) << why;
        EXPECT_EQ(Word(list), after) << why;
        CleanUp(list);
    }
};
