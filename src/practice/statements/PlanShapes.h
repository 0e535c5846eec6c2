// Plans that statements of one shape share: they differ in nothing but their literals.
#pragma once

#include "practice/tsql/TreeNode.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace quillon::practice {

class PlanShapes {
  public:
    // The place of the shape's plan, empty at first; good until the next call.
    std::unique_ptr<tsql::Attachment>& Slot(const std::string& shape);

  private:
    std::unordered_map<std::string, std::unique_ptr<tsql::Attachment>> m_plans;
};

} // namespace quillon::practice
