#include "ui/netplay_session.h"

#include "net/qt_transport.h"
#include "ui/chat_window.h"
#include "ui/connect_dialog.h"
#include "ui/main_window.h"

namespace varkesh {

NetPlaySession::NetPlaySession(Game& game, Outside& outside, MainWindow& owner,
                               SettingsStore* settings, const ConnectChoice& choice)
    : session_(std::make_unique<net::NetSession>()),
      transport_(std::make_unique<net::QtTransport>()),
      window_(std::make_unique<ChatWindow>(game, settings, &owner)) {
  node_ =
      std::make_unique<net::NetNode>(net::NetNode{game, *session_, outside, *window_, *transport_});
  link_ = std::make_unique<net::SessionLink>(*node_);
  window_->Attach(node_.get());
  connect(window_.get(), &ChatWindow::Closed, this, &NetPlaySession::End);

  game.net.localPlayerName = choice.playerName;
  session_->netPort = choice.port;
  const bool hosting = game.net.netRole == kNetHostDialog;
  if (!hosting) {
    session_->hostAddress = choice.hostAddress;
    window_->HideHostControls();
    // A client without a game waits on the title, which says so.
    if (game.turn.gameMode == ModeNoGame) {
      game.turn.modeAfterTitle = ModeNoGame;
      game.turn.gameMode = ModeTitle;
    }
  }
  window_->show();
  if (hosting)
    net::OpenAsHost(*node_);
  else
    net::OpenAsClient(*node_);
}

NetPlaySession::~NetPlaySession() {
  if (open_) net::CloseSession(*node_);
  // The link first, so that nothing reaches the node while it goes.
  link_.reset();
  node_.reset();
  window_.reset();
  transport_.reset();
  session_.reset();
}

void NetPlaySession::CloseBySystem() {
  if (open_) window_->CloseBySystem();
}

void NetPlaySession::End() {
  if (!open_) return;
  net::CloseSession(*node_);
  open_ = false;
  // The board's names and notes go back to those of a game on one machine.
  node_->game.view.boardChanged = true;
  emit Ended();
}

}  // namespace varkesh
