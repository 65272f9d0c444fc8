// Texts of the main window's labels, and the procedures that set them.
#pragma once

#include <string>

#include "core/game.h"
#include "core/outside.h"

namespace varkesh {

// "1st Round, White Player (Human)".
std::string TurnText(const Game& game);
// "White's Knight »» Black's Queen"; empty when (fromX, fromY) holds no piece.
std::string PieceText(const Game& game, int fromX, int fromY, int toX, int toY);
// "Friday (Anarchy/Kingdom Lost)".
std::string GameDescription(const Game& game);
// "Red's"; "~~error~~" for a value that names no team.
std::string TeamPossessive(int team);
// A piece's name for the player: "Queen", and "Dark Bishop" or "Light Bishop"
// by the colour of its square (x + y even is dark).
std::string PieceTitle(int kind, int x, int y);

void UpdateCurrentPlayer(const Game& game, Outside& outside);
void ShowPiece(const Game& game, Outside& outside, int fromX, int fromY, int toX, int toY);

}  // namespace varkesh
