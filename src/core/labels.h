// The texts of the main window's labels.
#pragma once

#include <string>

#include "core/position.h"
#include "core/setup.h"

namespace varkesh {

// "1st Round, White Player (Human)".
std::string TurnText(const Position& position, const Setup& setup);
// "White's Knight »» Black's Queen"; empty when (fromX, fromY) holds no piece.
std::string PieceText(const Position& position, int fromX, int fromY, int toX, int toY);
// "Friday (Anarchy/Kingdom Lost)".
std::string GameDescription(const Position& position, const Setup& setup);
// "Red's"; "~~error~~" for a value that names no team.
std::string TeamPossessive(int team);
// A piece's name for the player: "Queen", and "Dark Bishop" or "Light Bishop"
// by the colour of its square (x + y even is dark).
std::string PieceTitle(int kind, int x, int y);

}  // namespace varkesh
