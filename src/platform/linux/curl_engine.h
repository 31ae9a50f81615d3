// libcurl's handles inside the event loop: the kept connections, and one exchange at a time.
#pragma once

#include <curl/curl.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event_loop.h"

namespace qv {

class CurlEngine {
   public:
    // Who an exchange belongs to.
    class Sink {
       public:
        virtual ~Sink() = default;
        // Called from inside libcurl: they take down what came and do nothing else. False ends the exchange with an error.
        virtual void Connected() = 0;
        virtual bool HeadLine(std::string_view line) = 0;
        virtual bool Body(std::string_view chunk) = 0;
        // Called from outside of libcurl, so they may do whatever they like: behind each step, and at the end in front of it.
        virtual void Ended(CURLcode result, int systemError) = 0;
        virtual void Stepped() = 0;
    };
    struct Request {
        bool head = false;
        std::string origin;                // "http://host:port/": where to connect to
        std::string target;                // what stands in the request line
        std::vector<std::string> headers;  // the lines, without their ends; a line without a name isn't sent
    };

    explicit CurlEngine(EventLoop& loop);
    ~CurlEngine();
    CurlEngine(const CurlEngine&) = delete;
    CurlEngine& operator=(const CurlEngine&) = delete;

    // Starts an exchange; it goes on at the turns of the loop. No other one may be running.
    void Start(const Request& request, Sink& sink);
    // Lets go of the exchange, whether it has ended or not. An unfinished one loses its connection.
    void Drop();
    // Bytes that had come over the connection that was closed last, in its whole life.
    std::uint64_t ReceivedBeforeClose() const { return receivedBeforeClose_; }

   private:
    static int SocketChanged(CURL* easy, curl_socket_t socket, int what, void* self, void* unused);
    static int TimerChanged(CURLM* multi, long milliseconds, void* self);
    static int CloseSocket(void* self, curl_socket_t socket);
    static int Connected(void* self, char* theirs, char* ours, int theirPort, int ourPort);
    static std::size_t HeaderCame(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t BodyCame(char* data, std::size_t size, std::size_t count, void* self);
    void SetFixedOptions();
    void SetHeaders(const std::vector<std::string>& lines);
    void StopTimer();
    void Act(curl_socket_t socket, int events);

    EventLoop& loop_;
    CURLM* multi_;
    CURL* easy_;
    Sink* sink_ = nullptr;
    curl_slist* headers_ = nullptr;
    std::vector<std::string> headerLines_;  // what headers_ was made of
    std::string origin_;                    // what was set last
    EventLoop::TimerId timer_ = 0;
    std::uint64_t receivedBeforeClose_ = 0;
};

}  // namespace qv
