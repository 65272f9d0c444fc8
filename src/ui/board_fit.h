// Keeps the drawing in step with the window on each pass of the main loop:
// the art's scale to the board view's pixels, the army at the bottom, and
// the call for attention when a local human's turn comes unseen.
#pragma once

#include <array>

namespace varkesh {

struct Program;

// The logical size of the board drawing, in units of the art.
inline constexpr int kArtBoardUnits = 600;

// The scale at which the art fills a square view of side device pixels.
double ScaleForView(int sideDevicePixels);

class BoardFit {
 public:
  void Update(Program& program);

 private:
  void FitScale(Program& program);
  void TurnBoard(Program& program);
  void CallForAttention(Program& program);
  // A local human's fallen kingdom told, and once no local human is left,
  // the computers' moves previewed so that the end can be followed.
  void TellFallenKingdoms(Program& program);

  bool humanTurnSeen_ = false;
  std::array<bool, 4> fallenSeen_{};
  bool previewTurnedOn_ = false;
};

}  // namespace varkesh
