#include <algorithm>

#include "forms/Form.h"
#include "forms/View.h"

namespace ovalia::forms {

Runtime& Runtime::current() {
  thread_local Runtime runtime;
  return runtime;
}

std::shared_ptr<Form> Runtime::activeForm() const {
  if (!handling_.empty())
    if (auto form = handling_.back().lock()) return form;
  for (auto it = shown_.rbegin(); it != shown_.rend(); ++it)
    if (auto form = it->lock(); form && form->Visible()) return form;
  return nullptr;
}

std::vector<std::shared_ptr<Form>> Runtime::loadedForms() const {
  std::vector<std::shared_ptr<Form>> forms;
  for (const auto& reference : loaded_)
    if (auto form = reference.lock(); form && form->loaded()) forms.push_back(std::move(form));
  return forms;
}

}  // namespace ovalia::forms
