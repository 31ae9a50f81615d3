#include "platform/linux/gmime_mime1.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <memory>
#include <system_error>

#include "platform/linux/gmime_text.h"
#include "text/basic_text.h"
#include "text/characters.h"

namespace qv {
namespace {

constexpr std::size_t kPiece = 57 * 1024;  // bytes of a file at a time; 57 make a line
constexpr std::size_t kLongestLine = 990;  // of a text that goes as it is
constexpr double kWhole = 100;             // percent

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using PartObject = std::unique_ptr<GMimePart, Unref>;

// The type of a file, by the end of its name.
std::pair<const char*, const char*> TypeOf(const std::string& name) {
    const std::string lower = Lower(name);
    if (EndsWith(lower, ".txt")) return {"text", "plain"};
    if (EndsWith(lower, ".htm") || EndsWith(lower, ".html")) return {"text", "html"};
    return {"application", "octet-stream"};
}

PartObject NewPart(const std::string& contentType, const std::string& name) {
    const auto slash = contentType.find('/');
    const auto [type, subtype] = TypeOf(name);
    if (slash == std::string::npos) return PartObject(g_mime_part_new_with_type(type, subtype));
    return PartObject(g_mime_part_new_with_type(contentType.substr(0, slash).c_str(), contentType.substr(slash + 1).c_str()));
}

std::string HeadersOf(GMimePart* part) {
    const FormatOptions format;
    return TakeText(g_mime_object_get_headers(GMIME_OBJECT(part), format.Get()));
}

// A text with line feeds for all its line ends.
std::string WithLineFeeds(std::string_view text) { return ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\r", "\n"); }

// Whether a text can go as it is: ASCII without strange controls, in lines that every server takes.
bool IsPlain(std::string_view text) {
    std::size_t line = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 126 || (byte < ' ' && c != '\n' && c != '\t')) return false;
        line = c == '\n' ? 0 : line + 1;
        if (line > kLongestLine) return false;
    }
    return true;
}

// One encoding from its beginning to its end.
class Encoder {
   public:
    explicit Encoder(GMimeContentEncoding encoding) { g_mime_encoding_init_encode(&state_, encoding); }
    std::string Step(std::string_view bytes) {
        std::string out(g_mime_encoding_outlen(&state_, bytes.size()), '\0');
        out.resize(g_mime_encoding_step(&state_, bytes.data(), bytes.size(), out.data()));
        return ReplaceAll(out, "\n", "\r\n");
    }
    std::string Flush() {
        std::string out(g_mime_encoding_outlen(&state_, 0), '\0');
        out.resize(g_mime_encoding_flush(&state_, "", 0, out.data()));
        return ReplaceAll(out, "\n", "\r\n");
    }

   private:
    GMimeEncoding state_{};
};

std::string EncodedText(const std::string& text, GMimeContentEncoding encoding) {
    if (encoding == GMIME_CONTENT_ENCODING_7BIT) return ReplaceAll(text, "\n", "\r\n");
    Encoder encoder(encoding);
    std::string encoded = encoder.Step(text);
    return encoded + encoder.Flush();
}

std::string NewBoundary() {
    std::unique_ptr<GMimeMultipart, Unref> multipart(g_mime_multipart_new_with_subtype("mixed"));
    g_mime_multipart_set_boundary(multipart.get(), nullptr);
    return g_mime_multipart_get_boundary(multipart.get());
}

}  // namespace

// The multipart body on its way into the file.
class GmimeMime1::Body {
   public:
    Body(std::unique_ptr<FileReplacer> file, std::string boundary) : file_(std::move(file)), boundary_(std::move(boundary)) {}
    void Begin(const std::string& headers) { Put("--" + boundary_ + "\r\n" + headers + "\r\n"); }
    void Put(const std::string& bytes) { file_->Append(bytes); }
    void End() { Put("\r\n"); }
    FileResult Finish() {
        Put("--" + boundary_ + "--\r\n");
        return file_->Finish();
    }

   private:
    std::unique_ptr<FileReplacer> file_;
    std::string boundary_;
};

void GmimeMime1::TellProgress(std::int64_t bytes) {
    done_ += bytes;
    const int percent = whole_ == 0 ? static_cast<int>(kWhole)
                                    : static_cast<int>(static_cast<double>(done_) * kWhole / static_cast<double>(whole_));
    if (percent == told_ || percent > kWhole) return;
    told_ = percent;
    if (OnProgress) OnProgress(percent);
}

FileResult GmimeMime1::EncodeFile(const Part& part, Body& body) {
    const std::string native = NativePath(part.PartFile);
    errno = 0;
    std::ifstream file(native, std::ios::binary);
    std::string piece(kPiece, '\0');
    if (!file.is_open() || (file.peek(), file.bad())) return {false, std::generic_category().message(errno != 0 ? errno : EISDIR)};
    file.clear();
    const std::string name = AsUtf8(native.substr(native.rfind('/') + 1));
    const PartObject object = NewPart(part.PartContentType, name);
    g_mime_object_set_disposition(GMIME_OBJECT(object.get()), "attachment");
    g_mime_part_set_filename(object.get(), name.c_str());
    g_mime_part_set_content_encoding(object.get(), GMIME_CONTENT_ENCODING_BASE64);
    body.Begin(HeadersOf(object.get()));
    Encoder encoder(GMIME_CONTENT_ENCODING_BASE64);
    while (file.read(piece.data(), static_cast<std::streamsize>(piece.size())), file.gcount() > 0) {
        body.Put(encoder.Step({piece.data(), static_cast<std::size_t>(file.gcount())}));
        TellProgress(file.gcount());
    }
    if (file.bad()) return {false, std::generic_category().message(EIO)};
    body.Put(encoder.Flush());
    body.End();
    return {};
}

FileResult GmimeMime1::EncodeToFile() {
    StartGmime();
    whole_ = done_ = 0;
    told_ = -1;
    for (const Part& part : Parts) whole_ += part.PartFile.empty() ? 0 : files_.Length(part.PartFile);
    const std::string boundary = NewBoundary();
    auto file = files_.Replace(MessageFile);
    if (!file) return {false, "The file for the encoded mail can't be written: " + NativePath(MessageFile)};
    Body body(std::move(file), boundary);
    for (const Part& part : Parts) {
        if (!part.PartFile.empty()) {
            if (const FileResult result = EncodeFile(part, body); !result) return {false, NativePath(part.PartFile) + ": " + result.text};
            continue;
        }
        const std::string text = WithLineFeeds(AsUtf8(part.PartText));
        const PartObject object = NewPart(part.PartContentType, "");
        const auto encoding = part.PartEncoding == PartEncodingCode::Base64 ? GMIME_CONTENT_ENCODING_BASE64
                              : IsPlain(text)                               ? GMIME_CONTENT_ENCODING_7BIT
                                                                            : GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE;
        g_mime_object_set_content_type_parameter(GMIME_OBJECT(object.get()), "charset", "utf-8");
        g_mime_part_set_content_encoding(object.get(), encoding);
        body.Begin(HeadersOf(object.get()));
        body.Put(EncodedText(text, encoding));
        body.End();
    }
    TellProgress(0);
    MessageHeaders_ = "MIME-Version: 1.0\r\nContent-Type: multipart/mixed; boundary=\"" + boundary + "\"\r\n";
    return body.Finish();
}

void GmimeNetCode1::Encode() {
    EncodedData.clear();
    if (DecodedData.empty()) return;
    StartGmime();
    Encoder encoder(GMIME_CONTENT_ENCODING_BASE64);
    EncodedData = encoder.Step(DecodedData);
    EncodedData += encoder.Flush();
}

}  // namespace qv
