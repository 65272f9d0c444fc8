// One open NetPlay session of the desktop program: the session record, the
// TCP transport, the NetPlay window and the node that ties them to the game.
// It lives from the connect dialog's Connect to the window's close.
#pragma once

#include <QObject>
#include <memory>

#include "net/node.h"
#include "net/session.h"

namespace varkesh {

class ChatWindow;
class MainWindow;
class SettingsStore;
struct ConnectChoice;

namespace net {
class QtTransport;
}

class NetPlaySession : public QObject {
  Q_OBJECT

 public:
  // Opens as host or as client by game.net.netRole (1 or 3), with the choices of
  // the connect dialog, and shows the window.
  NetPlaySession(Game& game, Outside& outside, MainWindow& owner, SettingsStore* settings,
                 const ConnectChoice& choice);
  // Ends the session if the window has not: every connection closed, the
  // game menus back.
  ~NetPlaySession() override;

  net::NetNode& node() { return *node_; }
  const net::NetSession& session() const { return *session_; }
  ChatWindow& window() { return *window_; }
  // Until the window has closed and the session has ended.
  bool IsOpen() const { return open_; }
  // As the program ends: no question asked.
  void CloseBySystem();

 signals:
  // The session has ended; the owner may now destroy this object.
  void Ended();

 private:
  void End();

  std::unique_ptr<net::NetSession> session_;
  std::unique_ptr<net::QtTransport> transport_;
  std::unique_ptr<ChatWindow> window_;
  std::unique_ptr<net::NetNode> node_;
  std::unique_ptr<net::SessionLink> link_;
  bool open_ = true;
};

}  // namespace varkesh
