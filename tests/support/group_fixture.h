#pragma once

#include <memory>
#include <string>

#include "tests/support/element_double.h"
#include "tests/support/project_fixture.h"

namespace quenzel7::test {

/// Groups in a project file on disk, with members that note what they are told in the log of the connection.
class GroupProjectTest : public ProjectTest {
 protected:
  std::shared_ptr<ElementDouble> Make(const std::string& name, Long type = kRectangleElement) {
    return std::make_shared<ElementDouble>(name, type,
                                           [this](const std::string& note) { Recorder().Note(note); });
  }
};

}  // namespace quenzel7::test
