#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace ovalia::kit {

// A late-bound object that plays a host's form, a control or an outside component: properties that hold what
// is given to them, methods that answer as scripted, and a journal of everything done to it.
//
//   auto zip = std::make_shared<FakeObject>();
//   zip->with(u"GetLastMessage", u"disco lleno").answering(u"MakeZipFile", [](Arguments) { return Variant(3);
//   }); EXPECT_EQ(zip->journal, (std::vector<Text>{u"ZipFileName = \\tmp\\envio.zip",
//   u"AddFile(\\tmp\\*.txt)"}));
//
// Reading or calling a member that was not given is failure 438. A write makes the property, unless the
// object is strict. A property may be asked for with get or call, a method too, as a late binder does.
class FakeObject : public Object {
 public:
  using Method = std::function<Variant(Arguments)>;

  // Setting the scene; each gives the object back for the next.
  FakeObject& with(TextView property, Variant value);
  FakeObject& answering(TextView member, Method method);
  FakeObject& giving(TextView member, Variant value);  // a method with a fixed answer
  FakeObject& failing(TextView member, std::int32_t number);
  FakeObject& strict();

  // The value of a property; Empty when there is none.
  Variant property(TextView name) const;

  // Writes as "Name = value", with arguments "Name(0) = value"; calls as "Name(a, b)". Texts stand as they
  // are, objects as "<object>", Null as "Null".
  std::vector<Text> journal;
  std::vector<Text> reads;  // names of the members read

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;

 private:
  Variant answer(TextView member, Arguments arguments);
  void failIfToldTo(TextView member) const;

  std::map<Text, Variant, NameLess> properties_;
  std::map<Text, Method, NameLess> methods_;
  std::map<Text, std::int32_t, NameLess> failures_;
  bool strict_ = false;
};

// A form or control of that name and caption, as the log and the window routines see it.
std::shared_ptr<FakeObject> named(TextView name, TextView caption = {});

}  // namespace ovalia::kit
