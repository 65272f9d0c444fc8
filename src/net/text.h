// Text between this program and the wire. Inside the program text is UTF-8;
// on the wire every character is one byte (Latin-1), as every peer expects.
// Text from the wire as it may be shown: whatever is not valid UTF-8 shows
// as the replacement mark.
#pragma once

#include <string>
#include <string_view>

namespace varkesh::net {

// Valid UTF-8 passes unchanged, with tabs and line breaks; every invalid
// sequence and every other control character becomes U+FFFD.
std::string ShowableText(std::string_view bytes);

// A message for the wire: each character up to U+00FF becomes its one byte,
// any other becomes "?". Bytes that are no UTF-8 at all (the node list's
// free mark) pass as they are.
std::string ToWireText(std::string_view text);
// A message from the wire: each byte is the character of that code.
std::string FromWireText(std::string_view bytes);
// The first count characters of UTF-8 text; an invalid byte counts as one.
std::string FirstCharacters(std::string_view text, std::size_t count);

}  // namespace varkesh::net
