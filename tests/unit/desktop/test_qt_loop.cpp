#include <gtest/gtest.h>

#include "contracts/event_loop_contract.h"
#include "desktop/qt_loop.h"

namespace qv {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, EventLoopContract, QtLoop);

}  // namespace
}  // namespace qv
