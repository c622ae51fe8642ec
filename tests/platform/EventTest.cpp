#include "platform/Event.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/Failure.h"

namespace ovalia {
namespace {

TEST(Event, without_listeners_does_nothing) {
  const Event<int> event;
  EXPECT_FALSE(event.connected());
  event(1);
}

TEST(Event, calls_listeners_in_the_order_they_were_connected) {
  Event<> event;
  std::string calls;
  for (const char name : {'a', 'b', 'c'}) event.connect([&calls, name] { calls += name; });
  EXPECT_TRUE(event.connected());
  event();
  event();
  EXPECT_EQ(calls, "abcabc");
}

TEST(Event, carries_answers_back_through_reference_arguments) {
  Event<int&, const std::string&> event;
  event.connect([](int& answer, const std::string& text) { answer += int(text.size()); });
  event.connect([](int& answer, const std::string&) { answer *= 10; });
  int answer = 1;
  event(answer, "abc");
  EXPECT_EQ(answer, 40);
}

TEST(Event, each_listener_gets_its_own_copy_of_a_value) {
  Event<std::string> event;
  std::string seen;
  event.connect([](std::string text) { text += "!"; });
  event.connect([&](std::string text) { seen = text; });
  event("hola");
  EXPECT_EQ(seen, "hola");
}

TEST(Event, a_disconnected_listener_is_not_called_again) {
  Event<> event;
  std::string calls;
  const auto first = event.connect([&] { calls += 'a'; });
  event.connect([&] { calls += 'b'; });
  event.disconnect(first);
  event.disconnect(first);
  event();
  EXPECT_EQ(calls, "b");
  event.clear();
  event();
  EXPECT_EQ(calls, "b");
  EXPECT_FALSE(event.connected());
}

TEST(Event, a_connection_is_never_given_twice) {
  Event<> event;
  const auto first = event.connect([] {});
  event.disconnect(first);
  EXPECT_NE(event.connect([] {}), first);
}

TEST(Event, a_listener_connected_during_a_raise_is_called_from_the_next_on) {
  Event<> event;
  std::string calls;
  event.connect([&] {
    calls += 'a';
    event.connect([&] { calls += 'n'; });
  });
  event();
  EXPECT_EQ(calls, "a");
  event();
  EXPECT_EQ(calls, "aan");
}

TEST(Event, a_listener_disconnected_during_a_raise_is_left_out_from_the_next_on) {
  Event<> event;
  std::string calls;
  Event<>::Connection own = 0, other = 0;
  own = event.connect([&] {
    calls += 'a';
    event.disconnect(own);
    event.disconnect(other);
  });
  other = event.connect([&] { calls += 'b'; });
  event();
  EXPECT_EQ(calls, "ab");
  event();
  EXPECT_EQ(calls, "ab");
}

TEST(Event, may_be_raised_again_from_a_listener) {
  Event<int> event;
  std::string calls;
  event.connect([&](int depth) {
    calls += char('0' + depth);
    if (depth < 2) event(depth + 1);
  });
  event(0);
  EXPECT_EQ(calls, "012");
}

TEST(Event, a_failing_listener_ends_the_raise_and_reaches_the_raiser) {
  Event<> event;
  std::string calls;
  event.connect([&] { calls += 'a'; });
  event.connect([] { throw Failure(70); });
  event.connect([&] { calls += 'c'; });
  EXPECT_THROW(event(), Failure);
  EXPECT_EQ(calls, "a");
}

}  // namespace
}  // namespace ovalia
