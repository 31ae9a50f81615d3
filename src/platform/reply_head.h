// The head of a reply, line by line as it comes in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

// Replies that only announce the reply (codes 100 to 199, save 101) are passed over. Whatever comes behind the end of the head
// (trailers) is counted and passed over.
class ReplyHead {
   public:
    enum class Line {
        Passed,  // nothing to tell
        Field,   // a header: Field and Value hold it
        End      // the empty line at the end of the head
    };
    Line Take(std::string_view line);  // with or without its line end

    // The last status line as it was sent, without its line end; empty before there is one.
    const std::string& StatusLine() const { return statusLine_; }
    int Code() const { return code_; }  // 0 when there is none in the status line
    std::string CodeAndReason() const;  // "404 Not Found"; the code alone when no reason was sent
    bool Complete() const { return complete_; }
    std::size_t Bytes() const { return bytes_; }                   // all lines so far, line ends included
    std::int64_t ContentLength() const { return contentLength_; }  // -1 when the head doesn't tell
    const std::string& Field() const { return field_; }
    const std::string& Value() const { return value_; }  // without blanks and tabs at its ends

   private:
    Line TakeField(std::string_view line);
    bool IsAnnouncement() const;

    std::string statusLine_;
    int code_ = 0;
    bool inHead_ = false;  // behind a status line
    bool complete_ = false;
    std::size_t bytes_ = 0;
    std::int64_t contentLength_ = -1;
    std::string field_;
    std::string value_;
};

}  // namespace qv
