// Everything the desktop program holds for its whole run, in the order in
// which it is built and, backwards, taken down.
#pragma once

#include <memory>
#include <optional>

#include "engine/general_engine.h"
#include "engine/sound.h"
#include "flow/game.h"
#include "persist/pack_reader.h"
#include "persist/settings.h"
#include "persist/user_folders.h"
#include "ui/documents.h"

namespace varkesh {

class BoardView;
class Gdi;
class MainWindow;

struct Program {
  Program();
  ~Program();

  Game game;
  GeneralEngine engine;
  PackReader pack;
  SoundPlayer sound;
  // Set before StartUp to use another store or other file dialogs; StartUp
  // fills in the desktop's for those left empty.
  std::unique_ptr<SettingsStore> settings;
  std::unique_ptr<Documents> documents;
  // Where the run writes; StartUp finds the player's folders when unset.
  std::optional<UserFolders> folders;
  std::unique_ptr<Gdi> gdi;
  std::unique_ptr<BoardView> view;
  std::unique_ptr<MainWindow> window;
  int mainView = 0;
};

}  // namespace varkesh
