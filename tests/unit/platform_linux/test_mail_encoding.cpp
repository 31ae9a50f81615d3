// The multipart body and the header block, read back by GMime's parser; what another library makes of them is seen end to end.
#include <gmime/gmime.h>
#include <gtest/gtest.h>

#include "platform/linux/gmime_mime1.h"
#include "platform/linux/gmime_text.h"
#include "platform/linux/mail_message.h"
#include "platform/linux/scratch_folder.h"
#include "platform/linux/system_files.h"

namespace qv {
namespace {

struct Encoding : testing::Test {
    SystemFiles files;
    ScratchFolder scratch;
    GmimeMime1 mime{files};
    const std::string folder = PathText(scratch.NativePath()) + "\\";

    struct Read {
        std::string type, name, contents;
    };
    // The parts of the encoded mail.
    std::vector<Read> Parts() {
        std::string bytes;
        files.Read(mime.MessageFile, bytes);
        EXPECT_EQ(bytes.find_first_of("\n"), bytes.find("\r\n") + 1);
        const std::string message = mime.MessageHeaders() + "\r\n" + bytes;
        GMimeStream* stream = g_mime_stream_mem_new_with_buffer(message.data(), message.size());
        GMimeParser* parser = g_mime_parser_new_with_stream(stream);
        GMimeMessage* parsed = g_mime_parser_construct_message(parser, nullptr);
        std::vector<Read> parts;
        auto* multipart = GMIME_MULTIPART(g_mime_message_get_mime_part(parsed));
        for (int i = 0; i < g_mime_multipart_get_count(multipart); ++i) {
            GMimeObject* part = g_mime_multipart_get_part(multipart, i);
            Read read;
            read.type = TakeText(g_mime_content_type_get_mime_type(g_mime_object_get_content_type(part)));
            if (const char* name = g_mime_part_get_filename(GMIME_PART(part))) read.name = name;
            GMimeStream* memory = g_mime_stream_mem_new();
            g_mime_data_wrapper_write_to_stream(g_mime_part_get_content(GMIME_PART(part)), memory);
            const GByteArray* got = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(memory));
            read.contents.assign(reinterpret_cast<const char*>(got->data), got->len);
            g_object_unref(memory);
            parts.push_back(read);
        }
        g_object_unref(parsed);
        g_object_unref(parser);
        g_object_unref(stream);
        return parts;
    }
    FileResult Encode(const std::string& text, const std::vector<std::string>& names) {
        mime.Reset();
        mime.Parts.push_back({.PartText = text, .PartContentType = "text/plain", .PartEncoding = PartEncodingCode::Text});
        for (const auto& name : names) mime.Parts.push_back({.PartFile = folder + name});
        mime.MessageFile = folder + "reports.tmp";
        return mime.EncodeToFile();
    }
};

TEST_F(Encoding, FilesComeBackByteForByte) {
    std::string all;
    for (int i = 0; i < 300000; ++i) all += static_cast<char>(i * 7 + i / 256);
    const std::string longName = std::string(180, 'n') + "_text.txt";
    files.Write(folder + "a_html.htm", "<P>.\r\n.\r\n--=\n");
    files.Write(folder + "empty_text.txt", "");
    files.Write(folder + longName, "x");
    files.Write(folder + "Übersicht – März_ascii.txt", "é\n");
    files.Write(folder + "all.bin", all);
    std::vector<int> told;
    mime.OnProgress = [&](int percent) { told.push_back(percent); };
    ASSERT_TRUE(Encode("A text", {"a_html.htm", "empty_text.txt", longName, "Übersicht – März_ascii.txt", "all.bin"}));
    const auto parts = Parts();
    ASSERT_EQ(parts.size(), 6u);
    EXPECT_EQ(parts[0].type, "text/plain");
    EXPECT_EQ(parts[0].contents, "A text");
    EXPECT_EQ(parts[1].type, "text/html");
    EXPECT_EQ(parts[1].contents, "<P>.\r\n.\r\n--=\n");
    EXPECT_EQ(parts[2].contents, "");
    EXPECT_EQ(parts[3].name, longName);
    EXPECT_EQ(parts[4].name, "Übersicht – März_ascii.txt");
    EXPECT_EQ(parts[4].contents, "é\n");
    EXPECT_EQ(parts[5].type, "application/octet-stream");
    EXPECT_EQ(parts[5].contents, all);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back(), 100);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(std::adjacent_find(told.begin(), told.end()), told.end());
}

TEST_F(Encoding, TheTextComesBackWhateverItHolds) {
    const std::string lines = "\r\nGrüße — é\r\n.\r\nFrom me\r\n blank end \r\n" + std::string(2000, 'x') + "\r\n\r\n";
    ASSERT_TRUE(Encode(lines, {}));
    auto parts = Parts();
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_EQ(parts[0].contents, lines);
    ASSERT_TRUE(Encode("plain\r\n\r\n", {}));
    EXPECT_EQ(Parts()[0].contents, "plain\r\n\r\n");
    ASSERT_TRUE(Encode("", {}));
    EXPECT_EQ(Parts()[0].contents, "");
    ASSERT_TRUE(Encode("one\ntwo\rthree \xfc", {}));  // bytes that aren't UTF-8 are taken as Windows-1252
    EXPECT_EQ(Parts()[0].contents, "one\r\ntwo\r\nthree ü");
}

TEST_F(Encoding, NoLineIsTooLong) {
    ASSERT_TRUE(Encode(std::string(5000, 'y') + "é", {}));
    std::string bytes;
    files.Read(mime.MessageFile, bytes);
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = bytes.find("\r\n", at);
        ASSERT_NE(end, std::string::npos);
        EXPECT_LE(end - at, 998u);
        at = end + 2;
    }
}

TEST_F(Encoding, AMissingFileFailsAndLeavesTheOldBody) {
    ASSERT_TRUE(Encode("before", {}));
    std::string before, after;
    files.Read(mime.MessageFile, before);
    const FileResult result = Encode("x", {"gone_text.txt"});
    EXPECT_FALSE(result);
    EXPECT_NE(result.text.find("gone_text.txt: No such file or directory"), std::string::npos);
    files.Read(mime.MessageFile, after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(files.List(folder, "*").size(), 1u);
    files.MakeFolder(folder + "folder_text.txt");
    EXPECT_FALSE(Encode("x", {"folder_text.txt"}));
    mime.Parts.clear();
    mime.MessageFile = folder + "no\\such\\folder";
    EXPECT_FALSE(mime.EncodeToFile());
}

TEST(NetCode, EncodesToBase64) {
    GmimeNetCode1 code;
    const auto encoded = [&](const std::string& text) {
        code.DecodedData = text;
        code.Encode();
        return code.EncodedData.substr(0, code.EncodedData.find("\r\n"));
    };
    EXPECT_EQ(encoded("web author"), "d2ViIGF1dGhvcg==");
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("é"), "w6k=");
}

TEST(MailMessage, AnAddressIsOneAddress) {
    EXPECT_EQ(AddressIn("<a@b>"), "a@b");
    EXPECT_EQ(AddressIn(" Name <a@b> "), "a@b");
    EXPECT_EQ(AddressIn("a@b"), "a@b");
    EXPECT_EQ(AddressIn("<Bob <bob@x>>"), "bob@x");
    EXPECT_EQ(AddressIn("<a@x>,<evil@y>"), "a@x");
    EXPECT_EQ(AddressIn("<a@x\r\nRCPT TO:<evil@y>>"), "a@x");
    EXPECT_EQ(AddressIn("<a@x\n>"), "a@x");
    EXPECT_EQ(AddressIn("<>"), "");
    EXPECT_EQ(AddressesIn(" a@b, ,c@d,Bob <e@f>"), (std::vector<std::string>{"a@b", "c@d", "e@f"}));
    EXPECT_TRUE(AddressesIn("").empty());
}

std::string Header(const std::string& headers, const std::string& name) {
    const auto start = headers.find(name + ": ");
    if (start == std::string::npos) return "(none)";
    const auto from = start + name.size() + 2;
    return headers.substr(from, headers.find("\r\n", from) - from);
}

TEST(MailMessage, HeadersTellTheValues) {
    const std::string headers = ComposeMailHeaders({"Web Author <me@h.test>", "<you@h.test>", "a@h,b@h", "A subject", "X: y\r\n"});
    EXPECT_EQ(Header(headers, "From"), "Web Author <me@h.test>");
    EXPECT_EQ(Header(headers, "To"), "<you@h.test>");
    EXPECT_EQ(Header(headers, "Cc"), "a@h,");
    EXPECT_NE(headers.find("Cc: a@h,\r\n b@h\r\n"), std::string::npos);
    EXPECT_EQ(Header(headers, "Subject"), "A subject");
    EXPECT_NE(Header(headers, "Date"), "(none)");
    EXPECT_NE(Header(headers, "Message-ID").find("@h.test>"), std::string::npos);
    EXPECT_EQ(headers.substr(headers.size() - 8), "X: y\r\n\r\n");
    EXPECT_EQ(Header(ComposeMailHeaders({"", "", "", "", ""}), "Cc"), "(none)");
}

TEST(MailMessage, NamesAndSubjectsAreEncodedWhereTheyNeedIt) {
    const std::string empty = ComposeMailHeaders({" <me@h.test>", "<y@h>", "", "Grüße — é", ""});
    EXPECT_EQ(Header(empty, "From"), " <me@h.test>");
    EXPECT_EQ(Header(empty, "Subject").substr(0, 8), "=?UTF-8?");
    EXPECT_EQ(Header(ComposeMailHeaders({"Doe, Jane (x) <me@h>", "", "", "", ""}), "From"), "\"Doe, Jane (x)\" <me@h>");
    EXPECT_EQ(Header(ComposeMailHeaders({"Müller <me@h>", "", "", "", ""}), "From"), "=?iso-8859-1?q?M=FCller?= <me@h>");
    const std::string folded = ComposeMailHeaders({"", "", "", std::string(150, 'a') + " " + std::string(150, 'b') + " c é", ""});
    for (std::size_t at = 0; at < folded.size();) {
        const auto end = folded.find("\r\n", at);
        EXPECT_LE(end - at, 998u);
        at = end + 2;
    }
    EXPECT_EQ(folded.find("\n "), folded.find("\r\n ") + 1);
}

TEST(MailMessage, AServerMayNameItsPort) {
    const auto place = [](const char* text) {
        const MailServerPlace server = ParseMailServer(text);
        return server.host + " " + std::to_string(server.port) + (server.loopback ? " here" : "");
    };
    EXPECT_EQ(place("mail.example.com"), "mail.example.com 25");
    EXPECT_EQ(place("  mail.example.com:587 "), "mail.example.com 587");
    EXPECT_EQ(place("127.0.0.5:465"), "127.0.0.5 465 here");
    EXPECT_EQ(place("LOCALHOST"), "LOCALHOST 25 here");
    EXPECT_EQ(place("[::1]:26"), "[::1] 26 here");
    EXPECT_EQ(place("::1"), "[::1] 25 here");
    EXPECT_EQ(place("[fe80::1]"), "[fe80::1] 25");
    EXPECT_EQ(place("127.0.0.1.example.com"), "127.0.0.1.example.com 25");
    EXPECT_EQ(place("h:x"), "h 0");
    EXPECT_EQ(place("h:"), "h 0");
    EXPECT_EQ(place("h:65536"), "h 0");
    EXPECT_EQ(place(""), " 25");
}

}  // namespace
}  // namespace qv
