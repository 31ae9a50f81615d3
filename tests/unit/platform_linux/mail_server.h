// A mail server of one thread for tests, which at one step of the conversation does something else than it should.
#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform_linux/loopback.h"

namespace qv {

class MailServer {
   public:
    enum class Fault { None, Refuse, Hang, Break };

    // `step`: "greeting", the first word of a command, "message" (the reply behind the message's end) or "piece" (in the middle of
    // the message).
    MailServer(std::string step, Fault fault, std::string offers = "") : step_(std::move(step)), fault_(fault), offers_(std::move(offers)) {
        listener_ = ListenOnLoopback();
        port_ = BoundPort(listener_);
        thread_ = std::thread([this] { Accept(); });
    }
    ~MailServer() {
        shutdown(listener_, SHUT_RDWR);
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
            if (connection_ >= 0) shutdown(connection_, SHUT_RDWR);
        }
        thread_.join();
        close(listener_);
    }
    MailServer(const MailServer&) = delete;
    MailServer& operator=(const MailServer&) = delete;

    std::string Name() const { return "127.0.0.1:" + std::to_string(port_); }
    std::vector<std::string> Lines() {
        const std::lock_guard lock(mutex_);
        return lines_;
    }
    std::string Message() {
        const std::lock_guard lock(mutex_);
        return message_;
    }
    // Breaks off behind so many bytes of what it says, from now on.
    void CutAfter(std::size_t bytes) {
        left_ = bytes;
        said_ = 0;
        broken_ = false;
    }
    std::size_t Said() const { return said_; }  // bytes, since then
    // Whether the client has closed its connection; waits a while for it.
    bool Closed() {
        for (int i = 0; i < 500 && ended_ == 0; ++i) usleep(10000);
        return ended_ > 0;
    }

   private:
    void Accept() {
        for (;;) {
            const int connection = accept(listener_, nullptr, nullptr);
            if (connection < 0) return;
            {
                const std::lock_guard lock(mutex_);
                connection_ = connection;
                if (ending_) shutdown(connection_, SHUT_RDWR);
            }
            buffer_.clear();
            Talk(connection);
            // Whatever the fault was: the end of this conversation is the client's.
            char byte = 0;
            if (!broken_)
                while (recv(connection, &byte, 1, 0) > 0) {
                }
            {
                const std::lock_guard lock(mutex_);
                connection_ = -1;
            }
            close(connection);
            ++ended_;
        }
    }
    // Says a reply unless the fault is due at this step; false: the conversation is over.
    bool Say(int connection, const std::string& step, const std::string& reply) {
        if (step != step_) return Send(connection, reply);
        if (fault_ == Fault::Refuse) return Send(connection, "550 5.7.1 not for you\r\n");
        if (fault_ == Fault::Break) {
            broken_ = true;
            shutdown(connection, SHUT_RDWR);
        }
        if (fault_ == Fault::None) return Send(connection, reply);
        return false;
    }
    bool Send(int connection, const std::string& text) {
        const std::size_t size = std::min(text.size(), left_.load());
        left_ -= size;
        said_ += size;
        if (send(connection, text.data(), size, MSG_NOSIGNAL) != static_cast<ssize_t>(size)) return false;
        if (size == text.size()) return true;
        broken_ = true;
        shutdown(connection, SHUT_RDWR);
        return false;
    }
    bool Line(int connection, std::string& line) {
        for (;;) {
            const auto end = buffer_.find("\r\n");
            if (end != std::string::npos) {
                line = buffer_.substr(0, end);
                buffer_.erase(0, end + 2);
                return true;
            }
            char bytes[4096];
            const ssize_t got = recv(connection, bytes, sizeof bytes, 0);
            if (got <= 0) return false;
            buffer_.append(bytes, static_cast<std::size_t>(got));
        }
    }
    void Note(const std::string& line) {
        const std::lock_guard lock(mutex_);
        lines_.push_back(line);
    }
    void Talk(int connection) {
        if (!Say(connection, "greeting", "220 test ESMTP\r\n")) return;
        std::string line;
        while (Line(connection, line)) {
            Note(line);
            const std::string verb = line.substr(0, line.find_first_of(" :"));
            std::string reply = "250 ok\r\n";
            if (verb == "EHLO") reply = "250-test\r\n" + offers_ + "250 SIZE\r\n";
            if (verb == "QUIT") reply = "221 bye\r\n";
            if (verb == "DATA") reply = "354 go on\r\n";
            if (verb == "AUTH") {
                for (const char* question : {"334 VXNlcm5hbWU6\r\n", "334 UGFzc3dvcmQ6\r\n"}) {
                    if (!Send(connection, question) || !Line(connection, line)) return;
                    Note(line);
                }
                reply = "235 welcome\r\n";
            }
            if (!Say(connection, verb, reply)) return;
            if (verb == "QUIT") return;
            if (verb == "DATA" && !(step_ == "DATA" && fault_ != Fault::None) && !TakeMessage(connection)) return;
        }
    }
    bool TakeMessage(int connection) {
        std::string line;
        std::string message;
        while (Line(connection, line) && line != ".") {
            if (step_ == "piece" && !Say(connection, "piece", "")) return false;
            message += (line.substr(0, 2) == ".." ? line.substr(1) : line) + "\r\n";
        }
        if (line != ".") return false;
        {
            const std::lock_guard lock(mutex_);
            message_ = message;
        }
        return Say(connection, "message", "250 taken\r\n");
    }

    std::string step_;
    Fault fault_;
    std::string offers_;
    int listener_ = -1;
    int port_ = 0;
    std::thread thread_;
    std::mutex mutex_;
    int connection_ = -1;
    bool ending_ = false;
    std::atomic<bool> broken_ = false;
    std::atomic<std::size_t> left_ = std::string::npos;
    std::atomic<std::size_t> said_ = 0;
    std::atomic<int> ended_ = 0;
    std::string buffer_;
    std::vector<std::string> lines_;
    std::string message_;
};

}  // namespace qv
