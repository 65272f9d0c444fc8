#include "event_line.h"

#include <cstdio>

namespace varkesh::cli {

void PrintEventLine(const std::string& text) {
  std::string line;
  line.reserve(text.size() + 1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\r' || c == '\n') {
      // CR LF, a lone LF and a lone CR are each one break.
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      line += "\\n";
    } else {
      line += c;
    }
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fflush(stdout);
}

}  // namespace varkesh::cli
