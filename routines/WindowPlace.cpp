#include "routines/WindowPlace.h"

#include <algorithm>

#include "platform/Platform.h"
#include "platform/Variant.h"
#include "routines/Trap.h"

namespace ovalia {
namespace {

constexpr double leastSize = 100;  // twips
constexpr std::int32_t normal = 0;

// Stored texts may come from settings with another decimal sign.
std::int32_t wholeNumber(TextView stored) {
  const Text sign(1, regionalNow().decimal);
  return Variant(replaceAll(replaceAll(stored, u".", sign), u",", sign)).toLong();
}

std::int32_t storedNumber(TextView section, TextView key, const Variant& fallback) {
  const Platform& here = Platform::current();
  return wholeNumber(here.settings->get(here.app.title, section, key, fallback.text()));
}

struct Span {
  double start, size;

  void fitInto(double screen) {
    start = std::max(start, 0.0);
    size = std::min(std::max(size, leastSize), screen);
    start = std::min(start, screen - size);
  }
};

}  // namespace

void RestaurarVentana(const ObjectRef& form) {
  procedure(u"RestaurarVentana() de RutinasErr", [&] {
    const Text section = getMember(form, u"Name").text();
    const auto stored = [&](TextView key) { return storedNumber(section, key, getMember(form, key)); };
    const std::int32_t state = storedNumber(section, u"Estado", normal);
    Span vertical, horizontal;
    vertical.start = stored(u"Top");
    horizontal.start = stored(u"Left");
    horizontal.size = stored(u"Width");
    vertical.size = stored(u"Height");

    Screen& screen = *Platform::current().screen;
    horizontal.fitInto(screen.width());
    vertical.fitInto(screen.height());

    putMember(form, u"Top", vertical.start);
    putMember(form, u"Left", horizontal.start);
    putMember(form, u"Width", horizontal.size);
    putMember(form, u"Height", vertical.size);
    putMember(form, u"WindowState", state);
  });
}

void GuardarVentana(const ObjectRef& form) {
  procedure(u"GuardarVentana() de RutinasErr", [&] {
    const Platform& here = Platform::current();
    const Text section = getMember(form, u"Name").text();
    const auto save = [&](TextView key, const Variant& value) {
      here.settings->save(here.app.title, section, key, value.text());
    };
    const std::int32_t state = getMember(form, u"WindowState").toLong();
    save(u"Estado", state);
    if (state != normal) return;
    for (const TextView key : {u"Top", u"Left", u"Height", u"Width"}) save(key, getMember(form, key));
  });
}

}  // namespace ovalia
