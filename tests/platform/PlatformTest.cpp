#include "platform/Platform.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/platform/Show.h"

namespace ovalia {
namespace {

using test::failureOf;

struct StoppedClock : Clock {
  DateParts moment;
  explicit StoppedClock(DateParts at) : moment(at) {}
  Date now() override { return *dateFrom(moment); }
};

TEST(Platform, without_an_installation_is_failure_91_with_a_text_that_says_so) {
  EXPECT_FALSE(Platform::installed());
  try {
    Platform::current();
    FAIL() << "there is no platform";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), 91);
    EXPECT_NE(failure.description().find(u"plataforma"), Text::npos);
  }
}

TEST(Platform, is_this_threads_while_its_installation_lives) {
  Platform outer, inner;
  {
    const PlatformInstallation first(outer);
    EXPECT_EQ(&Platform::current(), &outer);
    {
      const PlatformInstallation second(inner);
      EXPECT_EQ(&Platform::current(), &inner);
    }
    EXPECT_EQ(&Platform::current(), &outer);
  }
  EXPECT_FALSE(Platform::installed());
}

TEST(Platform, is_each_threads_own) {
  Platform here;
  const PlatformInstallation installation(here);
  bool there = true;
  std::thread([&] { there = Platform::installed(); }).join();
  EXPECT_FALSE(there);
  EXPECT_TRUE(Platform::installed());
}

TEST(RegionalNow, has_the_clocks_year_and_the_platforms_settings) {
  StoppedClock clock({.year = 2031, .month = 5, .day = 6});
  Platform platform;
  platform.clock = &clock;
  platform.regional.decimal = u'.';
  const PlatformInstallation installation(platform);
  EXPECT_EQ(regionalNow().thisYear, 2031);
  EXPECT_EQ(regionalNow().decimal, u'.');
  EXPECT_EQ(Variant(u"01/02/51").toDate(), dateFrom({2051, 2, 1}));
  EXPECT_EQ(Variant(u"01/02/52").toDate(), dateFrom({1952, 2, 1}));
}

TEST(RegionalNow, keeps_the_settings_year_where_there_is_no_clock) {
  Platform platform;
  platform.regional.thisYear = 2031;
  const PlatformInstallation installation(platform);
  EXPECT_EQ(regionalNow().thisYear, 2031);
}

TEST(RegionalNow, is_spanish_where_nothing_is_installed) {
  EXPECT_EQ(regionalNow().decimal, u',');
  EXPECT_EQ(regionalNow().trueWord, u"Verdadero");
}

TEST(Clock, takes_the_moment_apart_into_day_and_time) {
  StoppedClock clock({2026, 3, 9, 10, 20, 30});
  EXPECT_EQ(clock.today(), dateFrom({2026, 3, 9}));
  EXPECT_EQ(clock.timeOfDay(), dateFrom({1899, 12, 30, 10, 20, 30}));
  StoppedClock midnight({2026, 3, 9});
  EXPECT_EQ(midnight.today(), midnight.now());
  EXPECT_EQ(midnight.timeOfDay(), Date{0});
}

TEST(ObjectRegistry, makes_what_was_registered_without_regard_to_case) {
  ObjectRegistry registry;
  int made = 0;
  registry.add(u"Agencia.Correo", [&] {
    ++made;
    return std::make_shared<MemberTable>();
  });
  const ObjectRef first = registry.create(u"AGENCIA.correo"), second = registry.create(u"Agencia.Correo");
  EXPECT_NE(first, second);
  EXPECT_EQ(made, 2);
}

TEST(ObjectRegistry, an_unknown_class_or_one_that_gives_nothing_is_429_and_is_named) {
  ObjectRegistry registry;
  registry.add(u"Vacia.Clase", [] { return ObjectRef(); });
  EXPECT_EQ(failureOf([&] { registry.create(u"Vacia.Clase"); }), 429);
  EXPECT_EQ(failureOf([&] { registry.create(u""); }), 429);
  try {
    registry.create(u"Otra.Clase");
    FAIL() << "nothing was registered";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), 429);
    EXPECT_NE(failure.description().find(u"Otra.Clase"), Text::npos);
  }
}

TEST(ObjectRegistry, a_later_factory_takes_the_place_of_an_earlier_one) {
  ObjectRegistry registry;
  const auto first = std::make_shared<MemberTable>(), second = std::make_shared<MemberTable>();
  registry.add(u"Clase", [=] { return first; });
  registry.add(u"CLASE", [=] { return second; });
  EXPECT_EQ(registry.create(u"Clase"), second);
}

TEST(ObjectRegistry, a_factorys_own_failure_passes_through) {
  ObjectRegistry registry;
  registry.add(u"Clase", []() -> ObjectRef { throw Failure(70); });
  EXPECT_EQ(failureOf([&] { registry.create(u"Clase"); }), 70);
}

}  // namespace
}  // namespace ovalia
