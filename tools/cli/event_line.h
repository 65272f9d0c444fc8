// The NetPlay node's standard output: one line for each event, flushed at
// once, so that a program reading the node sees it as it happens.
#pragma once

#include <string>

namespace varkesh::cli {

// A line break inside the text is written as the two characters "\n", so an
// event never takes more than one line.
void PrintEventLine(const std::string& text);

}  // namespace varkesh::cli
