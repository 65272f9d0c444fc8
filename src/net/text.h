// Text from the wire as it may be shown: the bytes of another machine are
// taken as UTF-8, and whatever is not valid shows as the replacement mark.
#pragma once

#include <string>
#include <string_view>

namespace varkesh::net {

// Valid UTF-8 passes unchanged, with tabs and line breaks; every invalid
// sequence and every other control character becomes U+FFFD.
std::string ShowableText(std::string_view bytes);

}  // namespace varkesh::net
