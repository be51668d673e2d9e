#include "support/session_server.h"

#include <X11/SM/SMlib.h>
#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

/// Its one client is the test's program.
class Server {
 public:
  explicit Server(int control) : control_(control) {}

  [[noreturn]] void Run();

 private:
  static Server& Of(SmPointer data) { return *static_cast<Server*>(data); }
  static Status Greet(SmsConn client, SmPointer data, unsigned long* mask, SmsCallbacks* callbacks,
                      char** reason);
  static Status Register(SmsConn client, SmPointer data, char* previous_id);

  void Tell(const char* word) const { dprintf(control_, "%s\n", word); }
  void Obey(char order);
  void OnSaved(bool success);
  void Accept(IceListenObj listener);
  void Process(IceConn connection);

  int control_;
  SmsConn client_ = nullptr;
  std::vector<IceConn> connections_;
  bool is_ending_ = false;
};

Status Server::Register(SmsConn client, SmPointer data, char* previous_id) {
  free(previous_id);
  Of(data).client_ = client;
  char* id = SmsGenerateClientID(client);
  SmsRegisterClientReply(client, id);
  free(id);
  // Every new client is asked to save first, as the protocol wants it.
  SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
  return 1;
}

Status Server::Greet(SmsConn /*client*/, SmPointer data, unsigned long* mask,
                     SmsCallbacks* callbacks, char** /*reason*/) {
  *mask = (SmsGetPropertiesProcMask << 1) - 1;  // all of them
  callbacks->register_client = {Register, data};
  callbacks->interact_request = {[](SmsConn client, SmPointer server, int /*kind*/) {
                                   Of(server).Tell("question");
                                   SmsInteract(client);
                                 },
                                 data};
  callbacks->interact_done = {[](SmsConn client, SmPointer server, Bool is_cancelled) {
                                Of(server).Tell(is_cancelled ? "cancelled" : "asked");
                                if (is_cancelled) SmsShutdownCancelled(client);
                              },
                              data};
  callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, data};
  callbacks->save_yourself_phase2_request = {
      [](SmsConn client, SmPointer) { SmsSaveYourselfPhase2(client); }, data};
  callbacks->save_yourself_done = {
      [](SmsConn, SmPointer server, Bool success) { Of(server).OnSaved(success); }, data};
  callbacks->close_connection = {[](SmsConn client, SmPointer server, int count, char** reasons) {
                                   Of(server).client_ = nullptr;
                                   SmFreeReasons(count, reasons);
                                   SmsCleanUp(client);
                                 },
                                 data};
  callbacks->set_properties = {[](SmsConn, SmPointer, int count, SmProp** properties) {
                                 for (int i = 0; i < count; ++i) SmFreeProperty(properties[i]);
                                 free(properties);
                               },
                               data};
  callbacks->delete_properties = {[](SmsConn, SmPointer, int, char**) {}, data};
  callbacks->get_properties = {
      [](SmsConn client, SmPointer) { SmsReturnProperties(client, 0, nullptr); }, data};
  return 1;
}

void Server::OnSaved(bool success) {
  if (is_ending_) {
    Tell(success ? "ready" : "failed");
  } else {
    SmsSaveComplete(client_);
  }
}

void Server::Obey(char order) {
  if (client_ == nullptr) return Tell("failed");
  is_ending_ = order != kGoOn;
  switch (order) {
    case kAskWithQuestions:
      return SmsSaveYourself(client_, SmSaveBoth, True, SmInteractStyleAny, False);
    case kAskWithoutQuestions:
      return SmsSaveYourself(client_, SmSaveBoth, True, SmInteractStyleNone, False);
    case kEnd:
      return SmsDie(client_);
    case kGoOn:
      return SmsShutdownCancelled(client_);
  }
}

void Server::Accept(IceListenObj listener) {
  IceAcceptStatus status = IceAcceptSuccess;
  IceConn connection = IceAcceptConnection(listener, &status);
  if (connection != nullptr) connections_.push_back(connection);
}

void Server::Process(IceConn connection) {
  if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess) {
    std::erase(connections_, connection);
  }
}

void Server::Run() {
  char error[256] = "";
  int count = 0;
  IceListenObj* listeners = nullptr;
  const auto admit = [](char* /*host*/) -> Bool { return True; };
  if (!SmsInitialize("test", "1", Greet, this, admit, sizeof error, error) ||
      !IceListenForConnections(&count, &listeners, sizeof error, error)) {
    fprintf(stderr, "%s\n", error);
    _exit(1);
  }
  IceSetIOErrorHandler([](IceConn) {});  // Process() finds out
  for (int i = 0; i < count; ++i) IceSetHostBasedAuthProc(listeners[i], admit);
  Tell(IceComposeNetworkIdList(count, listeners));
  while (true) {
    std::vector<pollfd> watched = {{control_, POLLIN, 0}};
    for (int i = 0; i < count; ++i) {
      watched.push_back({IceGetListenConnectionNumber(listeners[i]), POLLIN, 0});
    }
    const std::vector<IceConn> connections = connections_;
    for (IceConn connection : connections) {
      watched.push_back({IceConnectionNumber(connection), POLLIN, 0});
    }
    if (poll(watched.data(), watched.size(), -1) < 0) continue;
    if (watched[0].revents != 0) {
      char order = 0;
      if (read(control_, &order, 1) != 1) {
        IceFreeListenObjs(count, listeners);
        _exit(0);
      }
      Obey(order);
    }
    for (std::size_t i = 1; i < watched.size(); ++i) {
      if (watched[i].revents == 0) continue;
      if (i <= static_cast<std::size_t>(count)) {
        Accept(listeners[i - 1]);
      } else {
        Process(connections[i - 1 - static_cast<std::size_t>(count)]);
      }
    }
  }
}

}  // namespace

void RunSessionServer(int control) { Server(control).Run(); }
