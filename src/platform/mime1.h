// The encoder of mail: a text and files become one multipart body in a file.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace qv {

// How a part goes into the body.
enum class PartEncodingCode { Base64 = 0, Text = 1 };

class MIME1 {
   public:
    struct Part {
        std::string PartText;         // of a text part
        std::string PartFile;         // of a file part, a path in the backslash form; its last part is the name that goes along
        std::string PartContentType;  // empty: what the file's name tells
        PartEncodingCode PartEncoding = PartEncodingCode::Base64;
    };

    virtual ~MIME1() = default;

    std::vector<Part> Parts;  // PartCount of them, from 0
    std::string MessageFile;  // what EncodeToFile writes, in the backslash form

    void Reset() {
        Parts.clear();
        MessageHeaders_.clear();
    }
    // The header lines that go with the encoded file, each closed by a line break.
    const std::string& MessageHeaders() const { return MessageHeaders_; }

    // Writes the multipart body, replacing the file. A part's file that can't be read, or a body that can't be written, fails; the
    // file is then as it was. Files go through in pieces, so their size doesn't matter.
    virtual FileResult EncodeToFile() = 0;

    std::function<void(int percent)> OnProgress;  // 0 to 100, from inside of EncodeToFile, each value once

   protected:
    std::string MessageHeaders_;
};

}  // namespace qv
