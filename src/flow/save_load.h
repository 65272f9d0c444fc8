// Saving and loading games in coded .vsh files.
#pragma once

#include <optional>
#include <string>

#include "flow/game.h"
#include "flow/outside.h"

namespace varkesh {

void SaveGame(Game& game, Outside& outside, const std::string& path);
// Replaces the game only when the whole file has been read; on failure the
// running game stays exactly as it was and the error handler reports it.
void LoadGame(Game& game, Outside& outside, const std::string& path);

// The same for a game's plain text, as a host sends it; the record begins
// there. A text that cannot be read is no fault of this program: the problem
// comes back, no box shows, and the game stays as it was.
std::optional<std::string> LoadGameText(Game& game, Outside& outside, const std::string& text);

// Starts the game that has just been read at the beginning of its team's
// turn: the labels, fresh marks, mode 1 or 8, the pause button.
void ResumeLoadedGame(Game& game, Outside& outside);

// The running game as plain text, as a host sends it to its clients.
std::string GameImage(const Game& game);

// The Save Game and Load Game menu commands.
void SaveGameCommand(Game& game, Outside& outside);
void LoadGameCommand(Game& game, Outside& outside);

}  // namespace varkesh
