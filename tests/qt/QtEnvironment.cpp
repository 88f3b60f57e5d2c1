#include <QApplication>
#include <memory>

#include <gtest/gtest.h>

namespace {

/// One application for all tests of the program.
class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override { application_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[8] = "test_qt";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
