// An FTP server of one session after the other, which breaks off behind a number of bytes of its replies, or hangs there.
#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform_linux/loopback.h"

namespace qv {

class FtpServer {
   public:
    FtpServer() : listener_(ListenOnLoopback()), port_(BoundPort(listener_)), thread_([this] { Accept(); }) {}
    ~FtpServer() {
        ending_ = true;
        shutdown(listener_, SHUT_RDWR);
        {
            const std::lock_guard lock(mutex_);
            for (const int open : {connection_, data_})
                if (open >= 0) shutdown(open, SHUT_RDWR);
        }
        thread_.join();
        close(listener_);
    }
    FtpServer(const FtpServer&) = delete;
    FtpServer& operator=(const FtpServer&) = delete;

    std::string Host() const { return "127.0.0.1:" + std::to_string(port_); }
    // The next session ends, or says nothing more, behind so many bytes.
    void CutAfter(std::size_t bytes, bool hang = false) {
        left_ = bytes;
        hang_ = hang;
    }
    // What was said in the sessions so far, and the commands.
    std::string Said() {
        const std::lock_guard lock(mutex_);
        return said_;
    }
    std::vector<std::string> Commands() {
        const std::lock_guard lock(mutex_);
        return commands_;
    }
    void Forget() {
        const std::lock_guard lock(mutex_);
        said_.clear();
        commands_.clear();
    }
    std::map<std::string, std::string> replies;  // by command, instead of the usual ones; set before the first session

   private:
    void Accept() {
        for (;;) {
            const int accepted = accept(listener_, nullptr, nullptr);
            if (accepted < 0) return;
            Hold(connection_, accepted);
            if (!ending_) Talk(accepted);
            Hold(connection_, -1);
            close(accepted);
        }
    }
    void Hold(int& place, int socket) {
        const std::lock_guard lock(mutex_);
        place = socket;
    }
    bool Say(int connection, std::string_view text) {
        const std::size_t size = std::min(text.size(), left_);
        {
            const std::lock_guard lock(mutex_);
            said_ += text.substr(0, size);
        }
        left_ -= size;
        if (send(connection, text.data(), size, MSG_NOSIGNAL) != static_cast<ssize_t>(size)) return false;
        if (size == text.size()) return true;
        char byte = 0;
        if (hang_)
            while (recv(connection, &byte, 1, 0) > 0) {
            }
        return false;
    }
    bool Line(int connection, std::string& line) {
        line.clear();
        char byte = 0;
        while (recv(connection, &byte, 1, 0) == 1) {
            if (byte == '\n') {
                const std::lock_guard lock(mutex_);
                commands_.push_back(line);
                return true;
            }
            if (byte != '\r') line += byte;
        }
        return false;
    }
    void Talk(int connection) {
        static const std::map<std::string, std::string> kUsual = {
            {"USER", "331 a password\r\n"}, {"PASS", "230-welcome\r\n230 in\r\n"}, {"PWD", "257 \"/\" here\r\n"}, {"TYPE", "200 ok\r\n"},
            {"SIZE", "213 4\r\n"},          {"CWD", "250 ok\r\n"},                   {"QUIT", "221 bye\r\n"},        {"REST", "350 ok\r\n"}};
        const int passive = ListenOnLoopback();
        if (Say(connection, "220 ready\r\n")) {
            std::string line;
            while (Line(connection, line)) {
                const std::string verb = line.substr(0, line.find(' '));
                const auto own = replies.find(verb);
                const auto usual = kUsual.find(verb);
                bool on = true;
                if (own != replies.end())
                    on = Say(connection, own->second);
                else if (verb == "EPSV")
                    on = Say(connection, "229 at (|||" + std::to_string(BoundPort(passive)) + "|)\r\n");
                else if (verb == "RETR" || verb == "LIST")
                    on = Transfer(connection, passive);
                else
                    on = Say(connection, usual != kUsual.end() ? usual->second : "500 what?\r\n");
                if (!on || verb == "QUIT") break;
            }
        }
        close(passive);
    }
    bool Transfer(int connection, int passive) {
        const int data = accept(passive, nullptr, nullptr);
        if (data < 0) return false;
        Hold(data_, data);
        bool on = !ending_ && Say(connection, "150 here it comes\r\n");
        if (on) on = send(data, "text", 4, MSG_NOSIGNAL) == 4;
        Hold(data_, -1);
        close(data);
        return on && Say(connection, "226 done\r\n");
    }

    std::atomic<bool> ending_ = false;
    std::size_t left_ = std::string::npos;  // set while no session runs
    bool hang_ = false;
    std::mutex mutex_;  // guards what follows
    std::string said_;
    std::vector<std::string> commands_;
    int connection_ = -1;
    int data_ = -1;
    int listener_;
    int port_;
    std::thread thread_;
};

}  // namespace qv
