#include "sitedb/entry_settings.h"

#include "text/basic_text.h"

namespace qv {

void CopyCommonSettings(const SiteRecord& record, EntrySettings& s) {
    s.UseProxy = record.Number(field::UseProxy);
    s.ProxyServerName = record.Text(field::ProxyServerName);
    s.ProxyPortText = record.Text(field::ProxyPortText);
    s.UseProxyAuthentication = record.Number(field::UseProxyAuthentication);
    s.ProxyUserName = record.Text(field::ProxyUserName);
    s.ProxyPassword = record.Text(field::ProxyPassword);
    s.UseHttpAuthentication = record.Number(field::UseHttpAuthentication);
    s.HttpUserName = record.Text(field::HttpUserName);
    s.HttpPassword = record.Text(field::HttpPassword);
    s.UserAgent = record.Text(field::UserAgent);
    s.IncludeImages = record.Number(field::IncludeImages);
    s.IgnoreJavaScript = record.Number(field::IgnoreJavaScript);
    s.FollowRedirects = record.Number(field::FollowRedirects);
    s.CheckFtpLinks = record.Number(field::CheckFtpLinks);
    s.DocumentTypes = BetweenBlanks(record.Text(field::DocumentTypes));
    s.IgnoreOpenPaths = BetweenBlanks(record.Text(field::IgnoreOpenPaths));
    s.IgnoreLinkPaths = BetweenBlanks(record.Text(field::IgnoreLinkPaths));
    s.HttpTimeout = record.Number(field::HttpTimeout);
    s.FtpTimeout = record.Number(field::FtpTimeout);
    s.AutoReportsAfterCheck = record.Number(field::AutoReportsAfterCheck);
    s.ReportFolder = record.Text(field::ReportFolder);
    if (!s.ReportFolder.empty() && !EndsWith(s.ReportFolder, "\\")) s.ReportFolder += "\\";
    s.QuestionableOnly = record.Number(field::QuestionableOnly);
    s.EmailReports = record.Number(field::EmailReports);
    s.CopyMeOnReports = record.Number(field::CopyMeOnReports);
    s.MakeTextReport = record.Number(field::MakeTextReport);
    s.MakeAsciiReport = record.Number(field::MakeAsciiReport);
    s.MakeHtmlReport = record.Number(field::MakeHtmlReport);
    for (std::size_t i = 0; i < s.ReportAddresses.size(); ++i) s.ReportAddresses[i] = record.Text(field::ReportAddresses[i]);
}

void CopyEntryOnlySettings(const SiteRecord& record, EntrySettings& s) {
    s.FtpUserName = record.Text(field::FtpUserName);
    s.FtpPassword = record.Text(field::FtpPassword);
    s.SiteOpenMode = record.Number(field::SiteOpenMode);
    s.IgnoreOpenPathList = SplitBlankList(s.IgnoreOpenPaths);
    s.IgnoreLinkPathList = SplitBlankList(s.IgnoreLinkPaths);
    s.IgnoreTextList.clear();
    for (std::size_t slot = 1; slot <= kIgnoreTextSlots; ++slot) {
        std::string text = record.Text(field::IgnoreText(slot));
        if (!text.empty()) s.IgnoreTextList.push_back(std::move(text));
    }
}

}  // namespace qv
