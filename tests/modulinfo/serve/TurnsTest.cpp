#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "serve/Turns.h"

namespace tessara::testing {
namespace {

constexpr auto request = Turns::Kind::Request;
constexpr auto yielding = Turns::Kind::Yield;

TEST(Turns, a_request_waits_for_the_one_before_it) {
  Turns turns(false);
  EXPECT_TRUE(turns.mayHandle());
  {
    const Turns::Turn first(turns, request);
    EXPECT_FALSE(turns.mayHandle());
  }
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, a_request_waits_for_a_yield_that_no_request_has_caused) {
  Turns turns(false);
  const Turns::Turn scan(turns, yielding);
  EXPECT_FALSE(turns.mayHandle());
}

TEST(Turns, an_open_form_lets_requests_in_one_after_the_other) {
  Turns turns(false);
  const Turns::Turn opener(turns, request);
  const int form = 0;
  turns.formShown(&form);
  EXPECT_TRUE(turns.mayHandle());
  {
    const Turns::Turn inner(turns, request);
    EXPECT_FALSE(turns.mayHandle());
  }
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, after_a_form_has_hidden_itself_its_opener_comes_first) {
  Turns turns(false);
  auto opener = std::make_unique<Turns::Turn>(turns, request);
  const int form = 0;
  turns.formShown(&form);
  {
    const Turns::Turn closer(turns, request);
    turns.formHidden(&form);
    EXPECT_FALSE(turns.mayHandle());
  }
  EXPECT_FALSE(turns.mayHandle());
  opener.reset();
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, a_scan_under_an_open_form_keeps_requests_out) {
  Turns turns(false);
  const Turns::Turn opener(turns, request);
  const int form = 0;
  turns.formShown(&form);
  const Turns::Turn scan(turns, yielding);
  EXPECT_FALSE(turns.mayHandle());
}

TEST(Turns, of_two_forms_the_later_one_lets_requests_in) {
  Turns turns(false);
  const int first = 0;
  const int second = 0;
  const Turns::Turn opener(turns, request);
  turns.formShown(&first);
  const Turns::Turn other(turns, request);
  turns.formShown(&second);
  turns.formHidden(&first);
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, a_reentrant_client_comes_in_everywhere) {
  Turns turns(true);
  const Turns::Turn first(turns, request);
  EXPECT_TRUE(turns.mayHandle());
  const Turns::Turn scan(turns, yielding);
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, a_reentrant_client_does_not_come_in_without_end) {
  Turns turns(true);
  std::vector<std::unique_ptr<Turns::Turn>> nested;
  for (int depth = 0; depth < Turns::deepest; ++depth) {
    EXPECT_TRUE(turns.mayHandle());
    nested.push_back(std::make_unique<Turns::Turn>(turns, request));
  }
  EXPECT_FALSE(turns.mayHandle());
  nested.pop_back();
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, whoever_waits_is_told_when_the_next_one_may_come) {
  Turns turns(false);
  int told = 0;
  turns.nextMayCome = [&told] { ++told; };
  {
    const Turns::Turn opener(turns, request);
    EXPECT_EQ(told, 0);
    const int form = 0;
    turns.formShown(&form);
    EXPECT_EQ(told, 1);
    turns.formHidden(&form);
    EXPECT_EQ(told, 1);
  }
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace tessara::testing
