/// Reading of S-expressions, the notation of `.kicad_pcb` files: nested lists `(head item item ...)` whose items are
/// words, quoted texts or lists. Nothing here knows what a board is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace viewer {

/// What is wrong with a file, ready to be shown: "board.kicad_pcb:12: ...".
class ReadError : public std::runtime_error
{
public:
    ReadError(const std::string& file, uint32_t line, const std::string& what);
};

class SExprReader;

/// One item of a list: a word, a quoted text or a list. A handle of two words, valid until the reader's next
/// NextItem().
class SExpr
{
public:
    SExpr() = default;

    /// False for "no such item", which every other query accepts: it has no text, no items and no line.
    explicit operator bool() const { return reader != nullptr; }

    /// The head of a list, else the word, else the characters between the quotes with their escapes still in place.
    std::string_view Raw() const;
    /// Raw() with `\n`, `\"` and the other escapes resolved.
    std::string Text() const;
    bool IsList() const;
    /// Whether a list has this head.
    bool Is(std::string_view head) const { return IsList() && Raw() == head; }

    /// The first item after the head and, from there, the next one; "no such item" at the end.
    SExpr First() const;
    SExpr Next() const;

    /// The first list among the items that has this head.
    SExpr Find(std::string_view head) const;
    /// The index-th item after the head, counted from 0, lists included.
    SExpr At(size_t index) const;
    /// Whether the word stands among the items, by itself or as the head of a list.
    bool Has(std::string_view word) const;

    /// The index-th item as a number; `fallback` where there is none.
    /// Throws ReadError for a text that is no number and for one that no board reaches (see kLargestNumber).
    double Number(size_t index, double fallback = 0) const;
    /// The same for whole numbers, rounded toward zero.
    int Whole(size_t index, int fallback = 0) const { return int(Number(index, fallback)); }

    /// Throws ReadError at the line of this item.
    [[noreturn]] void Fail(const std::string& what) const;

    /// Values beyond this are refused: lengths are millimetres, and a kilometre is no board. It also keeps each number
    /// within an int.
    static constexpr double kLargestNumber = 1e6;

private:
    friend class SExprReader;
    SExpr(const SExprReader* owner, uint32_t node) : reader(owner), index(node) {}

    const SExprReader* reader = nullptr;
    uint32_t index = 0;
};

/// Walks the items of the file's one outer list, one at a time. The text is scanned once; the items of the current
/// entry lie in one array that is used again for the next, and their texts are views into the file's buffer.
class SExprReader
{
public:
    /// `text` has to outlive the reader. `file` names it in messages. Throws ReadError unless the text starts with the
    /// list `head`.
    SExprReader(std::string_view text, std::string file, std::string_view head);

    /// The next item of the outer list; "no such item" after its closing parenthesis, when nothing but space may
    /// follow. Throws ReadError where the file is cut off, and for lists nested deeper than kDeepest.
    SExpr NextItem();

    /// Bytes read so far, for a progress display.
    size_t Position() const { return position; }

    /// Boards nest about ten deep; the limit keeps a hostile file from filling the memory with open lists.
    static constexpr size_t kDeepest = 200;

private:
    friend class SExpr;
    enum class Kind : uint8_t
    {
        Word,
        Quoted,
        List
    };
    struct Node
    {
        std::string_view text;
        uint32_t child = 0; // 0 is the entry itself, which is nobody's child: it stands for "none"
        uint32_t next = 0;
        uint32_t line = 0;
        Kind kind = Kind::Word;
    };
    struct OpenList
    {
        uint32_t node;
        uint32_t last; // its last item so far, 0 for none
    };

    void SkipSpace();
    std::string_view ScanWord();
    std::string_view ScanQuoted();
    uint32_t Append(Kind kind, std::string_view text);
    void OpenNode();
    [[noreturn]] void FailCutOff() const;

    std::string_view text;
    std::string file;
    size_t position = 0;
    uint32_t line = 1;
    std::string_view outerHead;
    std::vector<Node> nodes;
    std::vector<OpenList> open;
};

} // namespace viewer
