#include "platform/Platform.h"

namespace ovalia {

namespace {

thread_local Platform* installedPlatform = nullptr;

}  // namespace

Platform& Platform::current() {
  if (!installedPlatform)
    throw Failure(
        failure::objectNotSet,
        u"Este hilo no tiene entorno instalado. Instale una plataforma antes de usar el componente.");
  return *installedPlatform;
}

bool Platform::installed() { return installedPlatform != nullptr; }

PlatformInstallation::PlatformInstallation(Platform& platform) : before_(installedPlatform) {
  installedPlatform = &platform;
}

PlatformInstallation::~PlatformInstallation() { installedPlatform = before_; }

Regional regionalNow() {
  if (!Platform::installed()) return {};
  const Platform& platform = Platform::current();
  Regional regional = platform.regional;
  if (platform.clock) regional.thisYear = partsOf(platform.clock->now()).year;
  return regional;
}

Date Clock::today() {
  const DateParts parts = partsOf(now());
  return dateFrom({parts.year, parts.month, parts.day}).value_or(Date{});
}

Date Clock::timeOfDay() {
  DateParts parts;
  const DateParts present = partsOf(now());
  parts.hour = present.hour;
  parts.minute = present.minute;
  parts.second = present.second;
  return dateFrom(parts).value_or(Date{});
}

void ObjectRegistry::add(TextView className, Factory factory) {
  factories_.insert_or_assign(Text(className), std::move(factory));
}

ObjectRef ObjectRegistry::create(TextView className) {
  const auto found = factories_.find(className);
  const Factory factory = found == factories_.end() ? Factory() : found->second;
  ObjectRef object = factory ? factory() : nullptr;
  if (!object)
    throw Failure(failure::classCannotBeCreated,
                  failureText(failure::classCannotBeCreated) + u" (" + Text(className) + u")");
  return object;
}

}  // namespace ovalia
