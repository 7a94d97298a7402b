// Starting the program, up to its main window.
#pragma once

#include "core/app/program.h"
#include "gui/platform/waiting.h"

#include <memory>

namespace bramblet {

/// The program with its settings read; null if the user has given up the start. A small window
/// shows what is being waited for, as there is no status bar yet.
std::unique_ptr<Program> loadProgram(const Environment& environment, Prompts& prompts,
                                     Waiting& waiting);

}  // namespace bramblet
