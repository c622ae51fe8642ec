#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace ovalia::kit {

// Misbehaviour of the doubles, apart from their data. Each double visits the panel at the start of each of
// its operations, under a name such as "Files.copy", "Screen.messageBox", "Recordset.Update"; a fault that
// waits for that visit happens instead of the operation.
//
//   faults.failNext("Files.copy", 70);          the next copy fails with 70
//   faults.failNth("Recordset.Update", 2, 3167); the second Update from now on
//   faults.failNth("", 5, 70);                  the fifth operation of any kind
//   faults.failAlways("Files.append", 61);      every append until heal
//   faults.onNext("Field.Value", [&] { ... });  anything else, before the operation goes on
class FaultPanel {
 public:
  using Action = std::function<void()>;

  void failNext(std::string_view operation, std::int32_t number, Text description = {});
  void failNth(std::string_view operation, int nth, std::int32_t number, Text description = {});
  void failAlways(std::string_view operation, std::int32_t number, Text description = {});
  void onNext(std::string_view operation, Action action);
  void onNth(std::string_view operation, int nth, Action action);

  void heal();  // forgets every fault

  int visits(std::string_view operation) const;  // so far; "" for all
  void visit(std::string_view operation);

  // A line for each fault that was set for one visit and never met.
  std::vector<std::string> unmet() const;

 private:
  struct Fault {
    std::string operation;
    int remaining;  // visits until it happens; 0: at every one
    Action action;
  };
  std::vector<Fault> faults_;
  std::map<std::string, int, std::less<>> visits_;
};

}  // namespace ovalia::kit
