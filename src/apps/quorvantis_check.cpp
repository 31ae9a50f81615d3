// quorvantis-check: checks the links of a page from a terminal, a script or a build.
#include <CLI/CLI.hpp>

#include <string>

#include "program/check_command.h"
#include "program/linux_services.h"

int main(int argc, char** argv) {
    qv::CheckOptions options;
    CLI::App app{"Checks the links of a Web page or a Web site and prints the questionable ones.", "quorvantis-check"};
    app.add_option("ADDRESS", options.address, "the page, http://host/path")->required();
    app.add_flag("--site", options.site, "walk the whole site that the page belongs to");
    app.add_option("--local", options.local, "a folder that mirrors the site: its files are read instead");
    app.add_option("--walk", options.walk, "of a local site: linked documents, all of the folder, or of the whole tree")
        ->check(CLI::IsMember({"linked", "folder", "tree"}));
    app.add_option("--types", options.types, "extensions of documents to open, parted by blanks");
    app.add_option("--ignore-open", options.ignoreOpen, "path fragments of documents to leave out, parted by blanks");
    app.add_option("--ignore-text", options.ignoreText, "leave out documents that hold this text");
    app.add_flag("--images", options.images, "check images, sounds and the like too");
    app.add_flag("--javascript", options.javascript, "list JavaScript links too");
    app.add_flag("--no-redirects", options.noRedirects, "don't follow redirects of links");
    app.add_flag("--no-ftp", options.noFtp, "leave ftp links out");
    app.add_option("--ignore-links", options.ignoreLinks, "path fragments of links to leave out, parted by blanks");
    app.add_option("--timeout", options.timeout, "seconds for each exchange")->check(CLI::Range(1.0, 32767.0));
    app.add_option("--user-agent", options.userAgent, "text of the User-Agent header");
    app.add_option("--proxy", options.proxy, "HOST:PORT of a proxy");
    app.add_option("--user", options.user, "NAME:PASSWORD for the page's own host");
    auto* home = app.add_option("--home", options.home, "keep the session in this folder");
    app.add_flag("--resume", options.resume, "go on with a site that was stopped")->needs(home);
    auto* report = app.add_option("--report", options.reports, "write a report: text, ascii or html; may be given more than once")
                       ->allow_extra_args(false)
                       ->check(CLI::IsMember({"text", "ascii", "html"}));
    app.add_option("--folder", options.folder, "the folder of the reports")->needs(report)->check(CLI::ExistingDirectory);
    app.add_flag("--questionable-only", options.questionableOnly, "leave good links out of the reports")->needs(report);
    app.add_flag("--list-all", options.listAll, "print the good links too");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int status = app.exit(error);
        return status == 0 ? 0 : qv::kExitUsage;
    }
    return qv::RunCheckCommand(options);
}
