#pragma once

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <systemd/sd-bus.h>

#include "fakes/file_tree.h"

namespace quibbly::fakes {

/// A real message bus of the test's own, gone with the test. It starts none of the machine's services.
class PrivateBus {
 public:
  PrivateBus() { start(); }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus() { kill(); }

  [[nodiscard]] std::string address() const { return "unix:path=" + (files_.root() / "bus").string(); }

  /// Starts it, anew after `kill`, at the same address.
  void start() {
    files_.add("bus.conf",
               "<busconfig><type>session</type><listen>" + address() + "</listen><servicedir>" +
                   (files_.root() / "services").string() +
                   "</servicedir><policy context='default'><allow send_destination='*'/><allow eavesdrop='true'/>"
                   "<allow own='*'/></policy></busconfig>");
    const std::string command =
        "exec dbus-daemon --fork --print-pid=1 --config-file=" + (files_.root() / "bus.conf").string() + " 2>/dev/null";
    FILE* const output = ::popen(command.c_str(), "r");
    char line[32] = "";
    if (std::fgets(line, sizeof line, output)) pid_ = std::atoi(line);
    ::pclose(output);
    if (pid_ <= 0) throw std::runtime_error("dbus-daemon is needed, and did not come up");
  }
  /// From now on the bus starts the command when somebody asks for the name.
  void offer(const std::string& name, const std::string& command) {
    files_.add("services/" + name + ".service", "[D-BUS Service]\nName=" + name + "\nExec=" + command + "\n");
  }
  void kill() {
    if (pid_ > 0) ::kill(pid_, SIGKILL);
    pid_ = 0;
    ::unlink((files_.root() / "bus").c_str());
  }

 private:
  FileTree files_;
  pid_t pid_ = 0;
};

/// Another program's connection to the bus.
class BusPeer {
 public:
  explicit BusPeer(const std::string& address) {
    sd_bus_new(&bus_);
    sd_bus_set_address(bus_, address.c_str());
    sd_bus_set_bus_client(bus_, 1);
    sd_bus_start(bus_);
  }
  BusPeer(const BusPeer&) = delete;
  BusPeer& operator=(const BusPeer&) = delete;
  ~BusPeer() { sd_bus_close_unref(bus_); }

  [[nodiscard]] sd_bus* get() const { return bus_; }

 private:
  sd_bus* bus_ = nullptr;
};

}  // namespace quibbly::fakes
