// The wizard's half that shows a record on the form.
#include "sitedb/wizard_form.h"
#include "text/basic_text.h"

namespace qv {
void WizardForm::Text1_Click() {
    if (p_.flags.IgnoreControlEvents != 0) return;
    SiteRecord* record = CurrentRecord();
    if (record == nullptr) return;
    shown_ = true;
    p_.flags.IgnoreControlEvents = kSet;
    if (ComApply.Caption() == "&Add") {
        ComApply.SetCaption("&Apply Changes");
        ComApply.SetEnabled(false);
    }
    Text2.SetText(record->SiteFileName());
    Text3.SetText(IsLocalDocument() ? record->SiteUrl() : record->SiteFolder());
    ShowOpenSettings(*record);
    ShowAuthorization(*record);
    ShowReports(*record);
    ComEdit.SetEnabled(Text1.ListIndex() >= 0);
    p_.flags.IgnoreControlEvents = kClear;
}

void WizardForm::ShowOpenSettings(SiteRecord& record) {
    Text5.SetText(BetweenBlanks(record.Text(field::DocumentTypes)));
    Text4.SetText(BetweenBlanks(record.Text(field::IgnoreOpenPaths)));
    Text7.SetText(BetweenBlanks(record.Text(field::IgnoreLinkPaths)));
    const std::int16_t mode = record.Number(field::SiteOpenMode);
    if (mode < 0 || mode > 2) record.SetNumber(field::SiteOpenMode, 0);
    (mode == 1 ? Option2 : mode == 2 ? Option3 : Option1).SetValue(true);
    ShowIgnoreTexts(record, ComboTextIgnore);
    Check1.SetValue(record.Number(field::IncludeImages));
    Check2.SetValue(record.Number(field::IgnoreJavaScript));
    Check3.SetValue(record.Number(field::FollowRedirects));
    Text8.SetText(std::to_string(record.Number(field::HttpTimeout)));
}

void WizardForm::ShowAuthorization(const SiteRecord& record) {
    const bool proxy = record.IsSet(field::UseProxy);
    const bool proxyUser = proxy && record.Number(field::UseProxyAuthentication) == kSet;
    const bool http = record.IsSet(field::UseHttpAuthentication);
    const bool ftp = record.IsSet(field::CheckFtpLinks);
    const auto text = [&](bool on, TextField f) { return on ? record.Text(f) : std::string(); };
    Check6.SetValue(proxy);
    TextServer.SetText(text(proxy, field::ProxyServerName));
    TextPort.SetText(text(proxy, field::ProxyPortText));
    Check7.SetValue(proxyUser);
    TextProxyUserName.SetText(text(proxyUser, field::ProxyUserName));
    TextProxyPassword.SetText(text(proxyUser, field::ProxyPassword));
    Check5.SetValue(http);
    TextUserName.SetText(text(http, field::HttpUserName));
    TextPassword.SetText(text(http, field::HttpPassword));
    Check4.SetValue(ftp);
    Text9.SetText(text(ftp, field::FtpUserName));
    Text10.SetText(text(ftp, field::FtpPassword));
    Text6.SetText(ftp ? std::to_string(record.Number(field::FtpTimeout)) : "");
    TextUserAgent.SetText(record.Text(field::UserAgent));
    ShowProxy(proxy);
    ShowHttp(http);
    ShowFtp(ftp);
}

void WizardForm::ShowReports(SiteRecord& record) {
    RepairReportFields(record, p_.settings.ReportFolder);
    Check10.SetValue(record.Number(field::AutoReportsAfterCheck));
    Check13.SetValue(record.Number(field::MakeTextReport));
    Check12.SetValue(record.Number(field::MakeAsciiReport));
    Check11.SetValue(record.Number(field::MakeHtmlReport));
    TextReportPath.SetText(record.Text(field::ReportFolder));
    CheckWhich.SetValue(record.Number(field::QuestionableOnly));
    Check8.SetValue(record.Number(field::EmailReports));
    Check9.SetValue(record.Number(field::CopyMeOnReports));
    Combo1.Clear();
    for (const TextField& address : field::ReportAddresses)
        if (!record.Text(address).empty()) Combo1.AddItem(record.Text(address));
    ShowReportFrames();
    FollowCheck8();
}

void WizardForm::ShowFtp(bool on) { EnableAll({&Label15, &Text9, &Label16, &Text10, &Label10, &Text6}, on); }

void WizardForm::ShowHttp(bool on) { EnableAll({&Label13, &TextUserName, &Label14, &TextPassword}, on); }

void WizardForm::ShowProxy(bool on) {
    EnableAll({&Label17, &TextServer, &Label18, &TextPort, &Check7}, on);
    if (!on && Check7.Checked()) Check7.SetValue(0);
    ShowProxyAuthentication(on && Check7.Checked());
}

void WizardForm::ShowProxyAuthentication(bool on) { EnableAll({&Label24, &TextProxyUserName, &Label26, &TextProxyPassword}, on); }

void WizardForm::ShowReportFrames() {
    Frame8.SetVisible(Check10.Checked());
    Frame3.SetVisible(Check10.Checked());
}

void WizardForm::ShowMailControls() {
    for (Control* control : std::initializer_list<Control*>{&Label27, &Combo1, &Command6, &Command8, &Check9})
        control->SetVisible(Check8.Checked());
}

}  // namespace qv
