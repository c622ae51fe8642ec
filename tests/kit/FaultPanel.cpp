#include "tests/kit/FaultPanel.h"

#include "platform/Failure.h"

namespace ovalia::kit {
namespace {

FaultPanel::Action failing(std::int32_t number, Text description) {
  return [=] { throw Failure(number, description); };
}

}  // namespace

void FaultPanel::failNext(std::string_view operation, std::int32_t number, Text description) {
  failNth(operation, 1, number, std::move(description));
}

void FaultPanel::failNth(std::string_view operation, int nth, std::int32_t number, Text description) {
  onNth(operation, nth, failing(number, std::move(description)));
}

void FaultPanel::failAlways(std::string_view operation, std::int32_t number, Text description) {
  onNth(operation, 0, failing(number, std::move(description)));
}

void FaultPanel::onNext(std::string_view operation, Action action) { onNth(operation, 1, std::move(action)); }

void FaultPanel::onNth(std::string_view operation, int nth, Action action) {
  faults_.push_back({std::string(operation), nth, std::move(action)});
}

void FaultPanel::heal() { faults_.clear(); }

int FaultPanel::visits(std::string_view operation) const {
  const auto found = visits_.find(operation);
  return found == visits_.end() ? 0 : found->second;
}

void FaultPanel::visit(std::string_view operation) {
  ++visits_[""];
  ++visits_[std::string(operation)];
  std::vector<Action> due;
  std::erase_if(faults_, [&](Fault& fault) {
    if (!fault.operation.empty() && fault.operation != operation) return false;
    if (fault.remaining > 1) return --fault.remaining, false;
    due.push_back(fault.action);
    return fault.remaining == 1;
  });
  for (const Action& action : due) action();
}

std::vector<std::string> FaultPanel::unmet() const {
  std::vector<std::string> lines;
  for (const Fault& fault : faults_)
    if (fault.remaining > 0)
      lines.push_back("the fault set for \"" + fault.operation + "\" was never met, " +
                      std::to_string(fault.remaining) + " visit(s) missing");
  return lines;
}

}  // namespace ovalia::kit
