// The help table of the status codes.
#pragma once

#include <memory>
#include <vector>

#include "controls/form.h"
#include "controls/simple_controls.h"

namespace qv {

// One label a line: Label1(0), Label1(1) and so on down the columns. A heading's label comes before those of its lines.
class CodeForm : public Form {
   public:
    explicit CodeForm(WindowSystem& windows);

    std::vector<std::unique_ptr<Label>> Lines;
    CommandButton ComClose{*this, "ComClose", "&Close"};
};

}  // namespace qv
