// The least that a probe can cost: one libcurl handle that asks for the same addresses with HEAD over a kept connection.
// usage: bench_head_loop ADDRESS-PREFIX COUNT      prints exchanges a second
#include <curl/curl.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    if (argc < 3) return 64;
    const int count = std::atoi(argv[2]);
    CURL* curl = curl_easy_init();
    curl_easy_setopt(curl, CURLOPT_NOBODY, 1L);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        const std::string address = argv[1] + std::to_string(i) + ".htm";
        curl_easy_setopt(curl, CURLOPT_URL, address.c_str());
        if (curl_easy_perform(curl) != CURLE_OK) return 1;
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%.0f\n", count / seconds);
    curl_easy_cleanup(curl);
    return 0;
}
