// The least that a probe can cost: one libcurl handle that asks for the same addresses with HEAD over a kept connection.
// With a folder the documents are fetched with GET instead, and four files of each are written there
// as the program writes its own: under another name first.
// usage: bench_head_loop ADDRESS-PREFIX COUNT [FOLDER]      prints exchanges a second
#include <curl/curl.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
    if (argc < 3) return 64;
    const int count = std::atoi(argv[2]);
    CURL* curl = curl_easy_init();
    const std::string folder = argc > 3 ? argv[3] : "";
    std::string body;
    curl_easy_setopt(curl, CURLOPT_NOBODY, folder.empty() ? 1L : 0L);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &body);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, +[](char* data, std::size_t, std::size_t size, void* to) {
        static_cast<std::string*>(to)->append(data, size);
        return size;
    });
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        const std::string address = argv[1] + std::to_string(i) + ".htm";
        curl_easy_setopt(curl, CURLOPT_URL, address.c_str());
        body.clear();
        if (curl_easy_perform(curl) != CURLE_OK) return 1;
        for (int copy = 0; copy < 4 && !folder.empty(); ++copy) {
            const std::string name = folder + "/" + std::to_string(i) + "." + std::to_string(copy);
            std::ofstream(name + ".new") << body;
            std::rename((name + ".new").c_str(), name.c_str());
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%.0f\n", count / seconds);
    curl_easy_cleanup(curl);
    return 0;
}
