// The coded form of a saved game: a header that names the format and guards
// the content, then the plain text compressed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varkesh {

// True when bytes begin like a coded file; a plain game text never does.
bool LooksCoded(std::string_view bytes);

// A coded file holds one or more texts: the game text first, then what a
// newer version keeps beside it. Files of the first version hold the game
// text alone.
std::string EncodeTexts(const std::vector<std::string>& parts);
// Throws std::runtime_error: "This file is not a Varkesh saved game" for bytes
// of another kind, "This saved game is damaged" when the content is spoilt.
std::vector<std::string> DecodeTexts(std::string_view coded);

// The game text alone.
std::string EncodeText(std::string_view plain);
std::string DecodeText(std::string_view coded);

// The same on files; the source is left in place and the target rewritten.
void EncodeFile(const std::string& plainPath, const std::string& codedPath);
void DecodeFile(const std::string& codedPath, const std::string& plainPath);

// Whole files as bytes; throw std::runtime_error naming the path on failure.
std::string ReadFileBytes(const std::string& path);
void WriteFileBytes(const std::string& path, std::string_view bytes);

}  // namespace varkesh
