#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/CardMasks.h"
#include "forms/Form.h"

namespace ovalia::desktop {

// A form with one control of each kind. It notes what it is told ("Change txtUno", "Key 188 2", "Tool
// ID_Guardar") and refuses what it is asked to.
class SampleForm : public forms::Form {
 public:
  SampleForm();

  std::vector<std::string> log;
  std::function<bool(forms::Control&)> refuses;  // Validate
  bool staysOpen = false;                        // Unload
  std::function<void(const std::string&)> on;    // after each note
  std::vector<Text> dropped;
  std::int32_t dragEffect = 1;
  Text leaving;  // the file that a drag takes out

  int count(const std::string& entry) const;
  void forget() { log.clear(); }

 protected:
  void onUnload(bool& cancel) override;
  void onResize() override;
  void onKeyDown(int keyCode, int shift) override;
  void onControl(forms::Control& control, forms::ControlEvent event) override;
  void onValidate(forms::Control& control, bool& cancel) override;
  void onTool(forms::ActiveToolBars::Tool& tool) override;
  void onToolAt(forms::ActiveToolBars::Tool& tool, forms::Point at) override;
  void onMouseUp(forms::ListView& list, int button) override;
  void onLabelEdit(forms::ListView& list, TextView text) override;
  void onDragOver(forms::Control& control, const ObjectRef& data, std::int32_t& effect) override;
  void onDragDrop(forms::Control& control, const ObjectRef& data) override;
  void onDragOut(forms::ListView& list, Text& path) override;

 private:
  void note(const std::string& entry);
};

}  // namespace ovalia::desktop
