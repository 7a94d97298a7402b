// Well-formed HTML for the display, built from tags that may come in any order: every element is
// closed within the one it was opened in, and no text is lost.
#pragma once

#include "core/document/display_style.h"
#include "core/document/markup.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

class DisplayBuilder {
  public:
    /// Lengths use `scale` as it is when they are added.
    explicit DisplayBuilder(const DisplayScale& scale) : scale_(scale) {}

    /// What has been built so far. Text between the rows and cells of a table is put into cells.
    const std::string& html() const { return html_; }
    /// The finished whole, with every element closed.
    std::string finished();

    /// Text of the document: anything in it that looks like markup is text.
    void addText(std::string_view text);
    /// HTML without an end tag, which takes up `length` characters of a line.
    void addSingle(std::string_view html, std::size_t length);
    void addBreak();
    /// HTML of a block of its own, between others.
    void addBlock(std::string_view html);

    /// Opens a text element. Its HTML is `opening`, empty for an element that has no effect.
    void openText(const Element& element, const std::string& opening);
    /// In a `lined` table, the cells of `lined` rows get lines unless they are empty, and the first
    /// row may be that of the `headings`.
    void openTable(const Element& element, const std::string& opening, bool lined);
    void openRow(const Tag& tag, bool lined, bool headings);
    void openCell(const Tag& tag, bool empty);
    /// Makes the next cell opened higher, by pixels at this zoom.
    void addHeight(double pixels) { addedHeight_ = pixels; }

    /// Closes the element and everything open within it. What is open around its cell, row or table
    /// stays open, and so does everything when there is no such element.
    void close(const Tag& tag);

  private:
    /// An element whose end is still to come.
    struct Open {
        const Element* element;
        std::string opening;    ///< as it stands in the page; empty if left out
        bool lined = false;     ///< of a table or a row
        bool headings = false;  ///< of a table, in a row
        int cells = 0;          ///< in a row, or in a table's longest row
    };

    void addCharacter(char c);
    void lengthen(std::size_t length, bool mayDivide);
    void divide();
    void closeParagraph(std::string_view name);
    bool leavesOut(const Tag& tag);
    void addRow(const Tag& tag, bool lined, bool headings = false);
    std::string cellStyle(const Open& row, bool empty);
    void ensureCell();
    bool isBetweenCells() const;
    static bool isTable(const Open& open) { return open.element->role == Role::Table; }
    static bool isCell(const Open& open) { return open.element->role == Role::Cell; }
    template <class Matches>
    std::optional<std::size_t> findOpen(Matches matches) const;
    void push(Open open);
    void closeDownTo(std::size_t count);
    void dropBlanksAtEnd();

    const DisplayScale& scale_;
    std::string html_;
    std::vector<Open> stack_;
    int cells_ = 0;           ///< of all tables
    std::size_t run_ = 0;     ///< characters in this paragraph
    double addedHeight_ = 0;  ///< of the next cell
};

}  // namespace bramblet
