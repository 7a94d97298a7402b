// Boxes in which the user says which column of a table is what.
#pragma once

#include <cstddef>
#include <functional>
#include <span>

class QLayout;

namespace bramblet {

class SourceTable;

/// A thing that is taken from the table: the box's name and caption, and what stands for it when it
/// is taken from nowhere.
struct ColumnChoice {
    const char *name, *caption, *otherwise;
};

/// One box for each of the choices, so many in a row. `chosen` is told of each change.
QLayout* columnChoices(const SourceTable& table, std::span<const ColumnChoice> choices, int inARow,
                       const std::function<void(std::size_t taken, int source)>& chosen);

}  // namespace bramblet
