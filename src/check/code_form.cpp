#include "check/code_form.h"

namespace qv {
namespace {

// Heading and lines as they stand in the window. One line stands three times: the table is printed so.
constexpr const char* kTable[] = {"Quorvantis Status Codes",
                                  "Standard Link Check Codes:",
                                  "OK    - Link Is Valid",
                                  "OK *  - Redirected Link Is Valid",
                                  "TMOUT - Connection Timed Out",
                                  "NTFND - File or Domain not found",
                                  "RFUSD - Server Refused Connection",
                                  "UKNWN - Unknown Problem",
                                  "NA Codes (Ignored):",
                                  "NA/SE  - HTTPS Secure Link",
                                  "NA/SC - Java Script Link",
                                  "NA/RE - Remote Link in Local Mode",
                                  "NA/CG - Local Mode CGI Link",
                                  "Other:",
                                  "STOP  - 'Stop' Button clicked",
                                  "SKIPD - 'Skip' Button clicked",
                                  "FTXXX - FTP Error Code",
                                  "(Returned by the Web Server)",
                                  "Table Of HTTP Status Codes",
                                  "Informal Codes",
                                  "100 - Continue",
                                  "101 - Switching Protocols",
                                  "Successful",
                                  "200 - OK",
                                  "201 - Created",
                                  "202 - Accepted",
                                  "203 - Non-Authoritive Information",
                                  "204 - No Content",
                                  "203 - Non-Authoritive Information",
                                  "203 - Non-Authoritive Information",
                                  "Redirection",
                                  "300 - Multiple Choices",
                                  "301 - Moved Permanently",
                                  "302 - Moved Temporarily",
                                  "304 - Not Modified",
                                  "305 - Use Proxy",
                                  "Error Codes (Client)",
                                  "400 - Bad Request",
                                  "401 - Unauthorized",
                                  "402 - Payment Required",
                                  "403 - Forbidden",
                                  "404 - Not Found",
                                  "405 - Method Not Allowed",
                                  "406 - Not Acceptable",
                                  "407 - Proxy Authentication Required",
                                  "408 - Request Timeout",
                                  "409 - Conflict",
                                  "410 - Gone",
                                  "411 - Length Required",
                                  "412 - Precondition Failed",
                                  "413 - Request Entity To Large",
                                  "414 - Request URI Too Long",
                                  "415 - Unsupported Media Type",
                                  "Error Codes (Server)",
                                  "500 - Internal Server Error",
                                  "501 - Not Implemented",
                                  "502 - Bad Gateway",
                                  "503 - Service Unavailable",
                                  "504 - Gateway Timeout",
                                  "505 - HTTP Version Not Supported"};

}  // namespace

CodeForm::CodeForm(WindowSystem& windows) : Form(windows, "CodeForm", "Quorvantis Status Codes") {
    SetSize(720, 560);
    int index = 0;
    for (const char* line : kTable) Lines.push_back(std::make_unique<Label>(*this, "Label1", line, nullptr, index++));
    SetDefaultButton(&ComClose);
    SetCancelButton(&ComClose);
    Load = [this] { Centre(); };
    ComClose.Click = [this] { Close(); };
}

}  // namespace qv
