#include "move_text.h"

namespace varkesh::cli {

std::string MoveText(const Move& move) {
  std::string text = std::to_string(move.fromX) + "," + std::to_string(move.fromY) + "-" +
                     std::to_string(move.toX) + "," + std::to_string(move.toY);
  if (move.option >= 0) text += "/" + std::to_string(move.option);
  if (move.option == kOptionClosed) text += "/none";
  return text;
}

}  // namespace varkesh::cli
