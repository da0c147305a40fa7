// Finds names with wildcards: * is any text, ? a character that is no digit, # a digit, a space separates alternatives.
#include <kolm.h>

#include <cstdio>

namespace {

void Find(const char* what)
{
    CString search = what;
    CStringArray names, found;
    for (const char* name : {"R1", "R12", "RN1", "C7", "net*", "USB_D+"})
        names.Add(name);
    const int keepNames = 0, splitAtSpaces = 1;
    CKString::SearchDataForWildCard(search, names, found, keepNames, splitAtSpaces);
    std::printf("%s finds", what);
    for (int i = 0; i < found.GetSize(); ++i)
        std::printf(" %s", LPCSTR(found[i]));
    std::printf("\n");
}

} // namespace

int main()
{
    Find("r#");    // case is ignored
    Find("R");     // a word without wildcards finds what begins with it
    Find("R?#");   // a letter between
    Find("C# R*"); // either word
    Find("*'*");   // an apostrophe takes the wildcard behind it literally
    Find("*_D*");
}
