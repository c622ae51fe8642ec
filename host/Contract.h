#pragma once

#include <memory>

#include "host/Dialogs.h"
#include "platform/Object.h"

// What the component reaches by member name in the host, written in one place: the application object, the
// main form with its status bar and its common dialog, and a card with its controller `vClase`. The objects
// may outlive what they speak for; their members then fail with 91.
namespace ovalia::host {

class HostCard;

// What the contract asks of the main window.
class MainFrame {
 public:
  virtual ~MainFrame() = default;
  virtual ObjectRef activeForm() = 0;  // the contract of the card or list on top; empty when there is none
  virtual Text statusText() = 0;
  virtual void setStatusText(TextView text) = 0;
};

ObjectRef applicationContract(TextView title);
ObjectRef mainFormContract(const std::shared_ptr<MainFrame>& frame, Dialogs& dialogs);
ObjectRef cardContract(const std::shared_ptr<HostCard>& card);

// An opening list as the form on top. `record` gives the row's number, 0 without one.
struct ListFacts {
  Text name;
  Text caption;
  Text table, key;
  std::function<std::int32_t()> record;
  std::function<ObjectRef()> rows;
  std::function<void()> reload;
};
ObjectRef listContract(ListFacts facts);

}  // namespace ovalia::host
