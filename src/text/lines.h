// Text files of lines: written with carriage return and line feed, read with any line end.
#pragma once

#include <string>
#include <string_view>

namespace qv {

// Composes the bytes of a line file.
class LineWriter {
   public:
    LineWriter& Line(std::string_view text) {
        bytes_.append(text).append("\r\n");
        return *this;
    }
    const std::string& Bytes() const { return bytes_; }
    void Reserve(std::size_t bytes) { bytes_.reserve(bytes); }

   private:
    std::string bytes_;
};

// Walks the lines of a file's bytes, which must outlive it. A line ends at CR LF, at a lone CR, at a lone LF or at the
// end of the bytes; a file that ends in a line end has no empty line behind it.
class LineReader {
   public:
    explicit LineReader(std::string_view bytes) : bytes_(bytes) {}
    bool AtEnd() const { return at_ >= bytes_.size(); }
    std::string_view Next();                      // the next line without its end; empty at the end of the bytes
    std::size_t Position() const { return at_; }  // bytes read so far

   private:
    std::string_view bytes_;
    std::size_t at_ = 0;
};

}  // namespace qv
