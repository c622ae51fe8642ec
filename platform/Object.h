#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <span>

#include "platform/Text.h"

namespace ovalia {

class Variant;

// Arguments of a late-bound call. The callee may write into them: that is how by-reference answers come back.
using Arguments = std::span<Variant>;

// Something reached by member name at run time: a host's form, a control, an outside component. Names match
// without regard to case. A missing member is failure 438, a wrong number of arguments 450; any member may
// fail with a number of its own.
class Object {
 public:
  virtual ~Object() = default;

  // Reads a property. The empty name is the default member, which takes the arguments ("collection(name)").
  virtual Variant get(TextView member, Arguments arguments = {}) = 0;

  // Writes a property.
  virtual void put(TextView member, const Variant& value, Arguments arguments = {}) = 0;

  // Calls a method; one without a result gives Empty.
  virtual Variant call(TextView member, Arguments arguments = {}) = 0;
};

using ObjectRef = std::shared_ptr<Object>;

// The object behind a reference; failure 91 when the reference is empty.
Object& deref(const ObjectRef& object);

// Reads member after member, each on the object the one before gave: path(frmBase, {"ActiveForm", "vClase"}).
// Failure 91 when a link is no object.
ObjectRef objectAt(const ObjectRef& start, std::initializer_list<TextView> members);

// An object made of a table of functions, so that a host writes its contract in one place. Members keep what
// their functions capture alive.
class MemberTable : public Object {
 public:
  using Getter = std::function<Variant(Arguments)>;
  using Setter = std::function<void(const Variant&, Arguments)>;
  using Method = std::function<Variant(Arguments)>;

  // Each takes the place of an earlier member of the name, and gives the table back for the next.
  MemberTable& property(TextView name, Getter get, Setter put = {});
  MemberTable& method(TextView name, Method call);

  // A property that holds a value given to it.
  MemberTable& value(TextView name, Variant initial);

  bool has(TextView name) const;

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;

 private:
  struct Member {
    Getter get;
    Setter put;
    Method call;
  };
  Member& find(TextView name);

  std::map<Text, Member, NameLess> members_;
};

}  // namespace ovalia
