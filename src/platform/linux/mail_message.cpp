#include "platform/linux/mail_message.h"

#include <gmime/gmime.h>

#include <algorithm>

#include "platform/linux/gmime_text.h"
#include "text/basic_text.h"
#include "text/characters.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr int kHighestPort = 65535;

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }

std::string_view BeforeControl(std::string_view text) {
    return text.substr(0, static_cast<std::size_t>(std::find_if(text.begin(), text.end(), IsControl) - text.begin()));
}

// A text that stays on its header line.
std::string HeaderText(std::string_view text) {
    std::string clean = AsUtf8(text);
    std::replace_if(clean.begin(), clean.end(), IsControl, ' ');
    return clean;
}

std::string Domain(const std::string& address) {
    const std::string domain = address.substr(address.rfind('@') + 1);
    const bool plain = !domain.empty() && domain.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-") ==
                                              std::string::npos;
    return plain ? domain : "localhost";
}

// "Name <address>", the name encoded or quoted where it needs that.
std::string Mailbox(const std::string& name, const std::string& address, const FormatOptions& format) {
    std::string encoded;
    if (!Trim(name).empty()) {
        // The address stands behind it as it is: only the name is the library's.
        InternetAddress* mailbox = internet_address_mailbox_new(std::string(Trim(name)).c_str(), "x");
        encoded = TakeText(internet_address_to_string(mailbox, format.Get(), TRUE));
        g_object_unref(mailbox);
        encoded.resize(encoded.rfind(" <"));
    }
    return encoded + " <" + address + ">";
}

// A header in lines that every server takes, each closed by CR LF.
std::string Folded(const std::string& header, const FormatOptions& format) {
    std::string folded = ReplaceAll(TakeText(g_mime_utils_unstructured_header_fold(nullptr, format.Get(), header.c_str())), "\r\n", "\n");
    if (!EndsWith(folded, "\n")) folded += "\n";
    return ReplaceAll(folded, "\n", "\r\n");
}

}  // namespace

std::string AddressIn(std::string_view text) {
    text = BeforeControl(text);
    text = text.substr(0, text.find('>'));
    const auto open = text.rfind('<');
    if (open != std::string_view::npos) text.remove_prefix(open + 1);
    return std::string(Trim(text));
}

std::vector<std::string> AddressesIn(std::string_view list) {
    std::vector<std::string> addresses;
    while (!list.empty()) {
        const auto comma = list.find(',');
        std::string address = AddressIn(list.substr(0, comma));
        if (!address.empty()) addresses.push_back(std::move(address));
        list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
    }
    return addresses;
}

std::string ComposeMailHeaders(const MailValues& values) {
    StartGmime();
    const FormatOptions format;
    const std::string sender = AddressIn(values.from);
    const std::string name = HeaderText(values.from.substr(0, std::min(values.from.find('<'), values.from.size())));
    std::string copies;
    for (const auto& address : AddressesIn(values.cc)) copies.append(copies.empty() ? "" : ",\r\n ").append(address);
    const std::string subject = TakeText(g_mime_utils_header_encode_text(format.Get(), HeaderText(values.subject).c_str(), "utf-8"));

    std::string headers = "From: " + Mailbox(name, sender, format) + "\r\n";
    headers += "To: <" + AddressIn(values.to) + ">\r\n";
    if (!copies.empty()) headers += "Cc: " + copies + "\r\n";
    headers += Folded("Subject: " + subject, format);
    GDateTime* now = g_date_time_new_now_local();
    headers += "Date: " + TakeText(g_mime_utils_header_format_date(now)) + "\r\n";
    g_date_time_unref(now);
    headers += "Message-ID: <" + TakeText(g_mime_utils_generate_message_id(Domain(sender).c_str())) + ">\r\n";
    return headers + values.otherHeaders + "\r\n";
}

MailServerPlace ParseMailServer(std::string_view text) {
    text = Trim(text);
    MailServerPlace place;
    const auto bracket = text.rfind(']');
    const auto colon = text.rfind(':');
    if (bracket == std::string_view::npos && colon != text.find(':')) {  // an IPv6 address by itself
        place.host.append("[").append(text).append("]");
        place.loopback = place.host == "[::1]";
        return place;
    }
    const bool named = colon != std::string_view::npos && (bracket == std::string_view::npos || colon > bracket);
    place.host = std::string(text.substr(0, named ? colon : text.size()));
    if (named) {
        const std::string_view digits = text.substr(colon + 1);
        const bool number = !digits.empty() && digits.size() <= 5 && digits.find_first_not_of("0123456789") == std::string_view::npos;
        const auto port = number ? LeadingInt32(digits).value_or(0) : 0;
        place.port = port <= kHighestPort ? port : 0;
    }
    const std::string host = Lower(place.host);
    place.loopback = host == "localhost" || host == "[::1]" || (StartsWith(host, "127.") && host.find_first_not_of("0123456789.") == std::string::npos);
    return place;
}

}  // namespace qv
