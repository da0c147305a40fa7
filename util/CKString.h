#pragma once

#include "KolmApi.h"

#include <afx.h>
#include <afxcoll.h>

/// Searches texts, such as the names of board elements, with a small wildcard language. All operations are static; the
/// class has no data. Texts are bytes: those of 128 and above are ordinary characters.
///
/// The language: "*" is any run of characters up to a line break, "?" one character that is not a decimal digit (a line
/// break is one), "#" one decimal digit. An apostrophe before a wildcard takes it literally, two apostrophes are one,
/// a space separates alternatives, everything else stands for itself. A token without a wildcard (see
/// IsStringHaveWildCard) matches every text that begins with it; of alternatives the last one only.
///
/// Both searches ignore case: texts and tokens are mapped to upper case, byte by byte, by the string's own MakeUpper.
/// Matching is that of the converted pattern with the standard library's ECMAScript regular expressions on the whole
/// text, also in that a token of tens of thousands of characters, which that engine refuses, matches nothing.
class KOLM_API CKString
{
public:
    static int IsWildCard(char c);         ///< 1 for "#", "*" and "?", else 0
    static int IsWildCardAsterisk(char c); ///< 1 for "*", else 0
    static int IsWildCardSharp(char c);    ///< 1 for "#", else 0
    static int IsWildCardQuestion(char c); ///< 1 for "?", else 0

    /// 1 when the text holds a wildcard with no apostrophe right before it, else 0. Two apostrophes before a wildcard
    /// count like one.
    static int IsStringHaveWildCard(CString s);

    /// The regular expression (ECMAScript) for a wildcard text, in the text's own case and without the addition that
    /// searches make to tokens that hold no wildcard.
    static CString ConvertWildCardToRegex(CString s);

    /// Appends the tokens of the text to the list; empty tokens only come from quotes with nothing between. Each
    /// character of `delimiters` separates; with none of them the whole text is one token. Double quotes at the start
    /// of a token join it with those that follow, a space between them, up to the one that holds the closing quote; a
    /// phrase that is never closed is dropped. No quote remains, and of a token without quotes one space at its end is
    /// taken away. `s` stays as it is.
    static void GetStringTokenArray(CString& s, CStringArray& tokens, CString delimiters);

    /// 1 when the text matches one of the tokens of `search` (split at spaces with `tokenize`, else all of it is one
    /// token), else 0. A token within double quotes, which only remains without `tokenize`, matches the same text
    /// exactly but for case, and then is tried without its quotes like any other. `data` is in upper case afterwards
    /// unless such an exact match came first or there was no token.
    static int SearchDataForWildCard(CString& search, CString& data, int tokenize);

    /// Appends to `found` the texts of `data` that match, as they stand there: for each token of `search` in turn those
    /// that match it, in order. With `remove` they leave `data`, otherwise a text is appended once for each token that
    /// it matches. A token within double quotes finds the first text that is the same but for case, and ends the search
    /// also when there is none. `found` may be the same list as `data`: what is appended is then not searched again by
    /// the same token. When memory runs out, the exception passes and `data` is complete.
    static void SearchDataForWildCard(CString& search, CStringArray& data, CStringArray& found, int remove,
                                      int tokenize);

    /// 1 when an element equals the text, case included, else 0.
    static int IsExistStrArray(CStringArray& list, const CString& s);

    /// The index of the first element that equals the text, case included; -1 when there is none or `list` is null.
    static int GetIndex(CStringArray* list, CString s);
};
