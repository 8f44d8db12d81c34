#include "platform/linux/dbus_cross_process_center.h"

#include <string>

#include "platform/linux/own_names.h"

namespace quibbly::linux_services {
namespace {

struct SignalName {
  std::string interface;
  std::string member;

  explicit SignalName(std::string_view name)
      : interface(name.substr(0, name.rfind('.'))), member(name.substr(name.rfind('.') + 1)) {}
};

}  // namespace

DBusCrossProcessCenter::~DBusCrossProcessCenter() {
  for (const Observer& o : observers_) bus_.detach(o.subscription);
}

void DBusCrossProcessCenter::post(std::string_view name) {
  const SignalName signal(name);
  bus_.send(bus_.newSignal(ownObjectPath, signal.interface.c_str(), signal.member.c_str()));
}

void DBusCrossProcessCenter::addObserver(void* observer, Callback callback, std::string_view name) {
  const SignalName signal(name);
  const std::string rule = "type='signal',path='" + std::string(ownObjectPath) + "',interface='" + signal.interface +
                           "',member='" + signal.member + "'";
  const auto subscription = bus_.subscribe(rule, [callback, observer] { callback(observer); });
  observers_.push_back({.observer = observer, .name = std::string(name), .subscription = subscription});
}

void DBusCrossProcessCenter::removeObserver(void* observer, std::string_view name) {
  std::erase_if(observers_, [&](const Observer& o) {
    const bool isMeant = o.observer == observer && o.name == name;
    if (isMeant) bus_.detach(o.subscription);
    return isMeant;
  });
}

}  // namespace quibbly::linux_services
