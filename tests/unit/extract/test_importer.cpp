// The importer around the scanner: what it reads, says, shows and leaves; and the rows of small pages.
#include "extract/hyperlink_importer.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_http1.h"
#include "fakes/fake_loop.h"
#include "platform/bounds.h"

namespace qv {
namespace {

// Answers every box with its default button and keeps the texts.
class Boxes : public WindowListener {
   public:
    explicit Boxes(WindowSystem& windows) : windows_(windows) { windows.Listen(this); }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        texts.push_back(request.text);
        windows_.Answer(request.defaultButton);
    }
    void DialogShown(const FileDialogRequest&) override { windows_.Answer(std::nullopt); }
    void Beeped() override {}
    std::vector<std::string> texts;

   private:
    WindowSystem& windows_;
};

struct Importing : testing::Test {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    RunFlags flags;
    FakeHttp1 http{flags};
    Session session;
    Settings settings;
    WindowSystem windows{[] {}};
    Boxes boxes{windows};
    Form form{windows, "CheckForm", ""};
    ProgressBar bar{form, "ProgressBar1"};
    Picture picture{form, "Picture1"};
    CommandButton hide{form, "ComHide", "S&how All"};
    ListBox list{form, "List1", ListBox::SelectionKind::Multiple};
    HyperlinkImporter importer{files, loop, clock, http, session, settings, flags, windows, {bar, picture, hide, list}};
    Flag failed = kClear;
    std::string message = "untouched";

    void Import(const std::string& page, const std::string& url = "http://host.dom/docs/index.htm") {
        session.ImportFilePath = "\\home\\document.htm";
        files.files[session.ImportFilePath] = page;
        http.SetURL(url);
        importer.Import(1, failed, message, url);
    }
    std::string Rows() const {
        std::string rows;
        for (std::size_t i = 1; i < session.Links.LinkTexts.size(); ++i)
            rows += session.Links.LinkTexts[i] + "|" + session.Links.LinkUrls[i] + "\n";
        return rows;
    }
    std::string RowsOf(const std::string& page, const std::string& url = "http://host.dom/docs/index.htm") {
        Import(page, url);
        return Rows();
    }
};

struct RowCase {
    const char* page;
    const char* rows;
};

class Rows : public Importing, public testing::WithParamInterface<RowCase> {};

TEST_P(Rows, AreThese) { EXPECT_EQ(RowsOf(GetParam().page), GetParam().rows) << GetParam().page; }

INSTANTIATE_TEST_SUITE_P(
    SmallPages, Rows,
    testing::Values(
        RowCase{"<A HREF=\"x.htm\">Next</A>", "Next|http://host.dom/docs/x.htm\n"}, RowCase{"<a href=x.htm>Next</a>", ""},
        RowCase{"<a href='x.htm'>Next</a>", ""},
        RowCase{"<a href=x title=\"t.htm\">Next</a>", "Next|http://host.dom/docs/t.htm\n"},
        RowCase{"<a href=\"x.htm#top\">Next</a>", "[Local: #top]|http://host.dom/docs/x.htm\n"},
        RowCase{"<a href=\"#top\">Up</a>", "[Local: #top]|http://host.dom/docs/index.htm\n"},
        RowCase{"<a href=\"http://host\">h</a>", "h|http://host/\n"},
        RowCase{"<a href=\"x.htm\"></a>", "[None]|http://host.dom/docs/x.htm\n"},
        RowCase{"<a href=\"x.htm\"><img ISMAP src=\"p.gif\"></a>",
                "[Image Map Link]|http://host.dom/docs/x.htm\n[Image]|http://host.dom/docs/p.gif\n"},
        RowCase{"<a href=\"x.htm\"><img src=\"p.gif\"></a>",
                "[Image HyperLink]|http://host.dom/docs/x.htm\n[Image]|http://host.dom/docs/p.gif\n"},
        RowCase{"<option value=\"http://h/x.htm\">Go<", "[Menu] Go|http://h/x.htm\n"}, RowCase{"<option value=\"a.htm\">Go<", ""},
        RowCase{"<meta http-equiv=\"refresh\" content=\"5; url=next.htm\">", "[Meta Tag]|http://host.dom/docs/next.htm\n"},
        RowCase{"<meta name=\"author\">", ""},
        RowCase{"<frame src=\"f.htm#a\">", "[Frame - Local: #a]|http://host.dom/docs/f.htm\n"},
        RowCase{"<iframe src=\"f.htm\">", ""}, RowCase{"<area href=\"m.htm\">", "[Image Map Link]|http://host.dom/docs/m.htm\n"},
        RowCase{"<area href=\"mailto:x\">", ""}, RowCase{"<img src=\"javascript:x\">", "[Script Image]|javascript:x\n"},
        RowCase{"<body background=\"b.gif\">\n<bgsound src=\"s.wav\">", "[Background Image]|http://host.dom/docs/b.gif\n"},
        RowCase{"<bgsound src=\"s.wav\">\n<bgsound src=\"t.wav\">", "[MS Sound]|http://host.dom/docs/s.wav\n"},
        RowCase{"<bgsound src=\"s.wav\"><bgsound src=\"t.wav\">",
                "[MS Sound]|http://host.dom/docs/s.wav\n[MS Sound]|http://host.dom/docs/t.wav\n"},
        RowCase{"<embed src=\"e\"><applet code=\"c\">",
                "[Plug-in]|http://host.dom/docs/e\n[Java Applet]|http://host.dom/docs/c\n"},
        RowCase{"<a href=\"a\">one</a>\r<a href=\"a\">one</a>", "one|http://host.dom/docs/a\none|http://host.dom/docs/a\n"},
        RowCase{"<img src=\"i\"><a href=\"a\">one</a>", "one|http://host.dom/docs/a\n[Image]|http://host.dom/docs/i\n"},
        RowCase{"<a\nhref=\"x.htm\">two\nlines</a>", "two lines|http://host.dom/docs/x.htm\n"},
        RowCase{"<img\nalt=\"\" src=\"p.gif\">", "[Image]|http://host.dom/docs/p.gif\n"},
        RowCase{"<img src=\"p.gif\"\nalt=\"\">", ""},
        RowCase{"<script>x</script><a href=\"a\">one</a>", "one|http://host.dom/docs/a\n"},
        RowCase{"<script>\n<a href=\"a\">one</a>\n</script>", "one|http://host.dom/docs/a\n"},
        RowCase{"<SCRIPT><a href=\"a\">one</a></SCRIPT>", "one|http://host.dom/docs/a\n"},
        RowCase{"<a href=\"javascript:x\">s</a>", ""}, RowCase{"<a href=\"//h/x\">p</a>", "p|http://host.dom//h/x\n"},
        RowCase{"<a href=\"a\">A &amp; B&nbsp; \t C</a>", "A & B C|http://host.dom/docs/a\n"}));

TEST_F(Importing, LinesInsideAScriptBlockAreSkippedOnlyWhereTheDialogTurnedItOn) {
    settings.IgnoreJavaScript = kSet;
    EXPECT_EQ(RowsOf("<script>\n<a href=\"a\">one</a>\n</script> <a href=\"b\">two</a>."), "two|http://host.dom/docs/b\n");
}

TEST_F(Importing, ScriptLinksAreListedWhenTheyAreNotIgnored) {
    settings.IgnoreJavaScript = kClear;
    EXPECT_EQ(RowsOf("<a href=\"javascript:go('a#b/')\">s</a>"), "[Script URL]|javascript:go('a#b/')\n");
    EXPECT_EQ(RowsOf("<a href=\"javascript:a//b\">s</a>"), "[Script URL]|javascript:a//b\n");
    EXPECT_EQ(RowsOf("<area href=\"javascript:go('#a')\"><frame src=\"javascript:go('#b')\"><frame src=\"javascript:a//b\">"),
              "[Script Image Map]|javascript:go('\n[Frame - Local: #b')]|javascript:go('\n[Frame]|javascript:a//b/\n");
}

TEST_F(Importing, FtpLinksAreLeftOutWhenTheyAreNotChecked) {
    settings.CheckFtpLinks = kClear;
    EXPECT_EQ(RowsOf("<a href=\"ftp://h/\">f</a>"), "");
    settings.CheckFtpLinks = 1;
    EXPECT_EQ(RowsOf("<a href=\"ftp://h/\">f</a>"), "f|ftp://h/\n");
}

TEST_F(Importing, ImagesAreLeftOutWhenTheyAreNotIncluded) {
    settings.IncludeImages = kClear;
    EXPECT_EQ(RowsOf("<img src=\"p\"><body background=\"b\"><embed src=\"e\"><meta content=\"url=m\">"),
              "[Meta Tag]|http://host.dom/docs/m\n");
}

TEST_F(Importing, IgnoredPathsLeaveNoGap) {
    settings.IgnoreLinkPathList = {"/banners/"};
    EXPECT_EQ(RowsOf("<a href=\"/banners/b\">b</a><a href=\"c\">c</a>"), "c|http://host.dom/docs/c\n");
}

TEST_F(Importing, ClimbsUpToTheRootAtMost) {
    EXPECT_EQ(RowsOf("<a href=\"../y.htm\">y</a><a href=\"../../../z.htm\">z</a><a href=\"./w\">w</a>", "http://h:81/a/b/c.htm"),
              "y|http://h:81/a/y.htm\nz|http://h:81/z.htm\nw|http://h:81/a/b/w\n");
}

TEST_F(Importing, ABaseTakesTheDocumentsPlace) {
    EXPECT_EQ(RowsOf("<head>\n<BASE HREF=\"http://b.dom/d/\">\n</head>\n<a href=\"x\">x</a>"), "x|http://b.dom/d/x\n");
    EXPECT_EQ(http.URLServer(), "b.dom");
    EXPECT_EQ(RowsOf("<base target=\"_top\"><link href=\"http://c.dom/\">\n<a href=\"x\">x</a>"), "x|http://host.dom/docs/x\n");
    for (const char* first : {"<base target=\"_top\">", "<base>", "<basefont size=2>\n<base>"})
        EXPECT_EQ(RowsOf(first + std::string("<base href=\"http://b.dom/d/\">\n<a href=\"x\">x</a>")), "x|http://b.dom/d/x\n");
    EXPECT_EQ(RowsOf("<base><base>\n<link href=\"y\"><a href=\"x\">x</a>"), "x|http://host.dom/docs/x\n");
}

TEST_F(Importing, ABaseIsLookedForInTheFirstNineThousandCharacters) {
    const std::string base = "\n<base href=\"http://b.dom/d/\"><a href=\"x\">x</a>";
    std::string umlauts;
    for (int i = 0; i < 9000; ++i) umlauts += "\xC3\xA4";
    for (const std::string& filler : {std::string(9000, ' '), umlauts, std::string(9000, '\xE4')}) {
        EXPECT_EQ(RowsOf(filler + base), "x|http://b.dom/d/x\n");
        EXPECT_EQ(RowsOf(filler + "\ny" + base), "x|http://host.dom/docs/x\n");
    }
    EXPECT_EQ(RowsOf(umlauts + "\n\xE4" + base), "x|http://host.dom/docs/x\n");  // not UTF-8: each byte is one
    EXPECT_EQ(RowsOf(std::string(40000, ' ') + base), "x|http://host.dom/docs/x\n");
    EXPECT_EQ(RowsOf(std::string(40000, ' ') + base.substr(1)), "x|http://b.dom/d/x\n");  // its line is taken whole
}

TEST_F(Importing, AFolderOfTheSiteGivesPathsInInternetMode) {
    session.SiteFolder = "\\web\\docs\\";
    Import("<a href=\"x.htm\">x</a><a href=\"/y.htm\">y</a><a href=\"#f\">f</a><a href=\"z.htm#g\">z</a>");
    EXPECT_EQ(session.DocumentPath, "\\web\\docs\\index.htm");
    // The folder of the document comes twice: the links' local base is the document's folder.
    EXPECT_EQ(session.Links.LinkPaths[1], "\\web\\docs\\docs\\x.htm");
    EXPECT_EQ(session.Links.LinkPaths[2], "\\web\\docs\\y.htm");
    EXPECT_EQ(session.Links.LinkPaths[3], "\\web\\docs\\docs\\index.htm");
    EXPECT_EQ(session.Links.LinkPaths[4], "\\web\\docs\\docs\\z.htm");
}

TEST_F(Importing, AnAbsoluteLinkIntoTheSiteIsMappedInLocalMode) {
    settings.ProgramMode = kLocalMode;
    session.SiteRoot = "http://host.dom/docs/";
    session.SiteFolder = "\\mirror\\";
    session.SiteFileName = "index.htm";
    Import("<a href=\"http://host.dom/docs/a/b.htm\">b</a><a href=\"http://host.dom/docs/\">r</a><a href=\"http://o/\">o</a>");
    EXPECT_EQ(session.Links.LinkPaths[1], "\\mirror\\a\\b.htm");
    EXPECT_EQ(session.Links.LinkPaths[2], "\\mirror\\index.htm");
    EXPECT_EQ(session.Links.LinkPaths[3], "");
    EXPECT_EQ(session.DocumentPath, "\\home\\document.htm");
}

TEST_F(Importing, NewLinksAreMarkedAndHaveNoStatus) {
    Import("<a href=\"x\">x</a>");
    EXPECT_EQ(session.Links.LinkFlags[1].Mark, 'X');
    EXPECT_EQ(session.Links.LinkFlags[1].Status, "      ");
    EXPECT_EQ(failed, kClear);
    EXPECT_EQ(message, "untouched");
}

TEST_F(Importing, AMissingFileIsSaid) {
    session.ImportFilePath = "\\home\\gone.htm";
    importer.Import(1, failed, message, "");
    EXPECT_EQ(failed, kSet);
    EXPECT_EQ(message, "File not found.");
    EXPECT_EQ(boxes.texts, std::vector<std::string>{"File not found - \\home\\gone.htm"});
}

TEST_F(Importing, AFolderInItsPlaceIsSaid) {
    files.folders.insert("\\home\\folder");
    session.ImportFilePath = "\\home\\folder";
    importer.Import(1, failed, message, "");
    EXPECT_EQ(message, "Path");
    EXPECT_EQ(boxes.texts, std::vector<std::string>{"Error Opening File"});
}

TEST_F(Importing, AnUnreadableFileGivesTheSystemsText) {
    files.unreadable.insert("\\home\\document.htm");
    Import("x");
    EXPECT_EQ(message, "Permission denied");
    EXPECT_EQ(boxes.texts, std::vector<std::string>{"Error Opening File"});
}

TEST_F(Importing, NothingIsSaidWhileASiteIsOpened) {
    for (Flag RunFlags::*running : {&RunFlags::SiteOpenRunning, &RunFlags::EnterpriseRunning}) {
        flags.*running = kSet;
        Import("");
        session.ImportFilePath = "\\gone";
        importer.Import(1, failed, message, "");
        flags.*running = kClear;
    }
    EXPECT_TRUE(boxes.texts.empty());
}

TEST_F(Importing, APageWithoutLinksSaysSo) {
    Import("nothing");
    EXPECT_EQ(boxes.texts, std::vector<std::string>{"No URLs Were Found."});
    EXPECT_EQ(failed, kClear);
}

TEST_F(Importing, TextsToIgnoreEmptyAPageDuringASiteOpenOnly) {
    settings.IgnoreTextList = {" Secret "};
    EXPECT_EQ(RowsOf("a secret\n<a href=\"x\">x</a>"), "x|http://host.dom/docs/x\n");
    flags.SiteOpenRunning = kSet;
    EXPECT_EQ(RowsOf("a secret\n<a href=\"x\">x</a>"), "");
    EXPECT_EQ(RowsOf("a SECRET\n<a href=\"x\">x</a>"), "x|http://host.dom/docs/x\n");
    EXPECT_EQ(failed, kClear);
}

TEST_F(Importing, StopKeepsWhatWasFound) {
    std::string page;
    for (int i = 0; i < 200000; ++i) page += "<a href=\"x\">x</a>";
    loop.Post([this] { flags.StopRequested = kSet; });
    clock.pauses = false;
    Import(page);
    EXPECT_EQ(failed, kSet);
    EXPECT_EQ(message, "Document Open was cancelled");
    EXPECT_GT(session.Links.LinkCount, 0);
    EXPECT_LT(session.Links.LinkCount, 200000);
}

TEST_F(Importing, LeavesTheWindowAsTold) {
    picture.SetVisible(true);
    bar.SetVisible(false);
    flags.HideGoodLinks = kSet;
    list.AddItem("row");
    Import("<a href=\"x\">x</a>");
    EXPECT_TRUE(bar.Visible());
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_FALSE(picture.Visible());
    EXPECT_EQ(flags.HideGoodLinks, kClear);
    EXPECT_EQ(hide.Caption(), "S&how Bad Only");
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(Importing, WaitsAMomentInInternetModeWithEventsHandled) {
    bool handled = false;
    loop.After(0.1, [&] { handled = true; });
    const double start = clock.now;
    Import("<a href=\"x\">x</a>");
    EXPECT_TRUE(handled);
    EXPECT_GE(clock.now - start, 0.199);
    settings.ProgramMode = kLocalMode;
    const double later = clock.now;
    Import("<a href=\"x\">x</a>");
    EXPECT_EQ(clock.now, later);
}

TEST_F(Importing, WithoutResolvingAddressesStayAsTheyAre) {
    session.ImportFilePath = "\\d";
    files.files["\\d"] = "<a href=\"x.htm\">x</a>";
    importer.Import(0, failed, message, "");
    EXPECT_EQ(Rows(), "x|x.htm\n");
}

TEST_F(Importing, LongAddressesAndLabelsAreCut) {
    Import("<a href=\"" + std::string(100000, 'u') + "\">" + std::string(100000, 't') + "</a>");
    EXPECT_EQ(session.Links.LinkUrls[1].size(), 65536U);
    EXPECT_EQ(session.Links.LinkTexts[1].size(), 65536U);
}

TEST_F(Importing, LinksBeyondAMillionAreLeftOut) {
    std::string page;
    page.reserve(16 * 1000001);
    for (int link = 0; link < 1000001; ++link) page += "<a href=\"x\">x</a>\n";
    Import(page);
    EXPECT_EQ(session.Links.LinkCount, bounds::kLinksPerDocument);
    EXPECT_EQ(session.Links.LinkCount, 1000000);
    EXPECT_EQ(session.Links.LinkUrls.size(), 1000001U);
}

}  // namespace
}  // namespace qv
