// A serial port that is driven from outside, a line of words for each step, without the toolkit.
// tools/windows_ports.py compiles it for Windows and holds a port there to its promises.
#include <chrono>
#include <cstddef>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

#include "ports/async_port.h"

namespace {

using Ports::AsyncPort;

constexpr std::size_t kMostHeld = 65536;

/// Whether `is_so` within ten seconds. Takes in the port's news meanwhile, as an event loop does.
bool WaitUntil(AsyncPort& port, const std::function<bool()>& is_so) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!is_so()) {
    if (std::chrono::steady_clock::now() > end) return false;
    port.TakeNews();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

std::string FromHex(const std::string& digits) {
  std::string bytes;
  for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
  }
  return bytes;
}

std::string ToHex(const std::string& bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string digits;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    digits += kDigits[value / 16];
    digits += kDigits[value % 16];
  }
  return digits;
}

std::string Do(AsyncPort& port, std::istream& words) {
  std::string word;
  words >> word;
  if (word == "open") {
    std::string name;
    unsigned baud_rate = 0;
    words >> name >> baud_rate;
    return port.Open(name, baud_rate) ? "open" : "refused: " + port.Reason();
  }
  if (word == "write") {
    words >> word;
    const std::string bytes = FromHex(word);
    port.Write(bytes.data(), bytes.size());
    return "written";
  }
  if (word == "fill") {
    std::size_t size = 0;
    words >> size;
    const std::string bytes(size, 'x');
    port.Write(bytes.data(), bytes.size());
    return port.Unsent() > 0 ? "waiting" : "gone";
  }
  if (word == "read") {
    std::size_t size = 0;
    words >> size;
    std::string bytes;
    WaitUntil(port, [&] {
      bytes += port.Read(0);
      return bytes.size() >= size || port.IsLost();
    });
    return ToHex(bytes);
  }
  if (word == "discard") {
    port.Discard();
    return port.Unsent() == 0 ? "nothing waits" : "waiting";
  }
  if (word == "drain") {
    return WaitUntil(port, [&] { return port.Unsent() == 0; }) ? "gone" : "waiting";
  }
  if (word == "lines") {
    port.SetDtr(false);
    port.SetRts(false);
    return port.IsLost() ? "lost" : "set";
  }
  if (word == "lost") return WaitUntil(port, [&] { return port.IsLost(); }) ? "lost" : "not lost";
  if (word == "close") {
    port.Close();
    return port.IsOpen() ? "open" : "closed";
  }
  return "not understood: " + word;
}

}  // namespace

int main() {
  AsyncPort port([] {}, kMostHeld);
  for (std::string line; std::getline(std::cin, line);) {
    std::istringstream words(line);
    std::cout << Do(port, words) << std::endl;
  }
}
