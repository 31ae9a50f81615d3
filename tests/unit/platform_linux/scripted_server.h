// A loopback server whose connections are played by the test, byte by byte: each runs one script in a thread of its own.
#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform_linux/loopback.h"

namespace qv {

class ScriptedServer {
   public:
    class Connection {
       public:
        Connection(ScriptedServer& server, int socket, int count) : number(count), server_(server), socket_(socket) {}
        const int number;  // 1 for the first connection

        // The next request's head, its empty line included; empty when the other side has gone.
        std::string ReadRequest() {
            std::size_t end = 0;
            while ((end = pending_.find("\r\n\r\n")) == std::string::npos) {
                char bytes[4096];
                const ssize_t got = recv(socket_, bytes, sizeof bytes, 0);
                if (got <= 0) return "";
                pending_.append(bytes, static_cast<std::size_t>(got));
            }
            const std::string request = pending_.substr(0, end + 4);
            pending_.erase(0, end + 4);
            server_.Note(request);
            return request;
        }
        // False when not all of it could be sent.
        bool Send(std::string_view bytes) {
            while (!bytes.empty()) {
                const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
                if (sent <= 0) return false;
                bytes.remove_prefix(static_cast<std::size_t>(sent));
            }
            return true;
        }
        void Reset() {  // the connection ends with a reset, at once
            const linger now{1, 0};
            setsockopt(socket_, SOL_SOCKET, SO_LINGER, &now, sizeof now);
            server_.Forget(socket_);
        }

       private:
        ScriptedServer& server_;
        int socket_;
        std::string pending_;
    };
    // Plays one connection, which is closed when it returns.
    using Script = std::function<void(Connection&)>;

    explicit ScriptedServer(Script script) : script_(std::move(script)), listener_(ListenOnLoopback()), port_(BoundPort(listener_)) {
        accepting_ = std::thread([this] { Accept(); });
    }
    ~ScriptedServer() {
        shutdown(listener_, SHUT_RDWR);
        accepting_.join();
        close(listener_);
        {
            const std::lock_guard lock(mutex_);
            for (const int open : open_) shutdown(open, SHUT_RDWR);
        }
        for (auto& player : players_) player.join();
    }
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    int Port() const { return port_; }
    std::string Authority() const { return "127.0.0.1:" + std::to_string(port_); }
    std::string Url(const std::string& path) const { return "http://" + Authority() + path; }
    std::vector<std::string> Requests() const {
        const std::lock_guard lock(mutex_);
        return requests_;
    }
    int Connections() const {
        const std::lock_guard lock(mutex_);
        return connections_;
    }

   private:
    void Accept() {
        for (;;) {
            const int accepted = accept(listener_, nullptr, nullptr);
            if (accepted < 0) return;
            const std::lock_guard lock(mutex_);
            open_.push_back(accepted);
            players_.emplace_back([this, accepted, count = ++connections_] {
                Connection connection(*this, accepted, count);
                script_(connection);
                Forget(accepted);
            });
        }
    }
    void Note(const std::string& request) {
        const std::lock_guard lock(mutex_);
        requests_.push_back(request);
    }
    void Forget(int socket) {
        const std::lock_guard lock(mutex_);
        for (auto at = open_.begin(); at != open_.end(); ++at) {
            if (*at != socket) continue;
            open_.erase(at);
            close(socket);
            return;
        }
    }

    Script script_;
    int listener_;
    int port_ = 0;
    std::thread accepting_;
    mutable std::mutex mutex_;  // guards all below
    std::vector<std::string> requests_;
    int connections_ = 0;
    std::vector<int> open_;
    std::vector<std::thread> players_;
};

}  // namespace qv
