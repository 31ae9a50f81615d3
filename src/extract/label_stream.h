// Labels that run over long stretches of a page, many of which may share their end (anchors that are closed late).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

// Keeps the cleaned text of the last long stretch with the places behind its tags. A label that starts behind one of these
// tags and has the same end is the rest of that text, and costs no second reading of the page.
class LabelStream {
   public:
    explicit LabelStream(std::string_view page) : page_(page) {}

    // The cleaned label of the page's bytes from `from` up to `to`, which start behind a ">".
    std::string Label(std::size_t from, std::size_t to);

   private:
    std::size_t FindStart(std::size_t from) const;

    std::string_view page_;
    std::size_t from_ = 0;
    std::size_t to_ = 0;
    std::string text_;
    std::vector<std::pair<std::size_t, std::size_t>> tagEnds_;  // place in the page, length of the text there
};

}  // namespace qv
