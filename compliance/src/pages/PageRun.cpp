#include "pages/PageRun.h"

#include "pages/Pages.h"
#include "server/HttpServer.h"

#include <chrono>
#include <condition_variable>
#include <fstream>
#include <iterator>
#include <mutex>
#include <stdexcept>

namespace compliance {
namespace {

// A page gives up by itself a little earlier.
constexpr std::chrono::seconds LONGEST_PAGE(150);
constexpr std::chrono::seconds LAST_PAGE(3);

// Part of every page: reports the title when it says a verdict, and goes on to the next page.
constexpr const char* REPORT_SCRIPT = R"(
(function() {
  var started = Date.now();
  var timer = setInterval(function() {
    var verdict = document.title;
    if (!/^(PASS|FAIL)/.test(verdict)) {
      if (Date.now() - started < 120000) {
        return;
      }
      verdict = 'FAIL: the page came to no verdict within 120 s; its title is "' + verdict + '"';
    }
    clearInterval(timer);
    var request = new XMLHttpRequest();
    request.open('POST', '/verdict' + location.pathname, true);
    request.onload = function() { location.href = request.responseText; };
    request.send(verdict);
  }, 200);
})();
)";

constexpr const char* DONE_PAGE = "<!DOCTYPE html><meta charset=\"utf-8\"><title>done</title><body>All pages have run; "
                                  "the program that serves them has the report.";

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string pathOf(const Page& page) {
    return std::string("/object/") + page.file;
}

/** Threads: those of the server, and the one that waits. */
class PageRun {
public:
    PageRun(const Options& options, const Profile& profile, std::function<void(const std::string&)> print)
        : m_folder(options.pages), m_print(std::move(print)) {
        for (const Page& page : allPages()) {
            const bool isOffered = profile.offers(page.check.feature);
            const bool isWanted = options.only.empty() || isIn(options.only, page.check.name);
            if (!isWanted) {
                continue;
            }
            if (readFile(m_folder + pathOf(page)).empty()) {
                throw std::runtime_error("there is no page " + m_folder + pathOf(page));
            }
            m_pages.push_back(&page);
            m_results.emplace_back(&page.check, Result{isOffered ? Verdict::NOT_JUDGED : Verdict::NOT_OFFERED,
                                                       {"no verdict came", ""},
                                                       isOffered ? "" : "the profile leaves it out",
                                                       0});
        }
    }

    bool answer(const HttpRequest& request, HttpResponse& response) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const std::string verdictPath = "/verdict";
        if (request.path == "/") {
            response.type = "text/html; charset=utf-8";
            response.body =
                "<!DOCTYPE html><meta charset=\"utf-8\"><script>location.href = '" + nextPath() + "';</script>";
        } else if (request.path == "/report.js") {
            response.type = "text/javascript; charset=utf-8";
            response.body = REPORT_SCRIPT;
        } else if (request.path == "/done") {
            response.type = "text/html; charset=utf-8";
            response.body = DONE_PAGE;
            m_isDone = true;
            m_changed.notify_all();
        } else if (request.method == "POST" && request.path.compare(0, verdictPath.size(), verdictPath) == 0) {
            takeVerdict(request.path.substr(verdictPath.size()), request.body);
            response.body = nextPath();
        } else {
            return answerPage(request, response);
        }
        return true;
    }

    Results wait() {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (nextPath() != "/done") {
            const size_t before = m_verdicts;
            if (!m_changed.wait_for(lock, LONGEST_PAGE, [&] { return m_verdicts != before; })) {
                m_print("no page has reported for " + std::to_string(LONGEST_PAGE.count()) + " s: that is the end\n");
                return m_results;
            }
        }
        m_changed.wait_for(lock, LAST_PAGE, [this] { return m_isDone; });
        return m_results;
    }

private:
    static bool isIn(const std::vector<std::string>& names, const std::string& name) {
        for (const std::string& other : names) {
            if (other == name) {
                return true;
            }
        }
        return false;
    }

    /** @return the first page that has no verdict yet */
    std::string nextPath() const {
        for (size_t i = 0; i < m_pages.size(); ++i) {
            if (m_results[i].second.verdict == Verdict::NOT_JUDGED) {
                return pathOf(*m_pages[i]);
            }
        }
        return "/done";
    }

    void takeVerdict(const std::string& path, const std::string& verdict) {
        for (size_t i = 0; i < m_pages.size(); ++i) {
            Result& result = m_results[i].second;
            if (pathOf(*m_pages[i]) != path || result.verdict != Verdict::NOT_JUDGED) {
                continue;
            }
            const bool passed = verdict.compare(0, 4, "PASS") == 0;
            result = {passed ? Verdict::PASSED : Verdict::FAILED, {verdict, "PASS"}, "", 0};
            ++m_verdicts;
            m_print(std::string(verdictName(result.verdict)) + "  " + m_pages[i]->check.name + '\n');
            m_changed.notify_all();
        }
    }

    /** A page itself, with the script that reports its verdict. */
    bool answerPage(const HttpRequest& request, HttpResponse& response) const {
        for (const Page* page : m_pages) {
            if (request.path == pathOf(*page)) {
                response.type = "text/html; charset=utf-8";
                response.body = readFile(m_folder + request.path);
                const size_t afterDoctype = response.body.find('>') + 1;
                response.body.insert(afterDoctype, "<script src=\"/report.js\"></script>");
                return true;
            }
        }
        return false;
    }

    const std::string m_folder;
    const std::function<void(const std::string&)> m_print;
    std::vector<const Page*> m_pages;
    std::mutex m_mutex; // guards all below
    std::condition_variable m_changed;
    Results m_results; // in the order of m_pages
    size_t m_verdicts = 0;
    bool m_isDone = false; // the browser has asked for the page after the last
};

} // namespace

Results runPages(const Options& options, const std::string& mediaFolder,
                 const std::function<void(const std::string&)>& print) {
    const Profile profile = options.profileFile.empty() ? Profile() : Profile::read(options.profileFile);
    PageRun run(options, profile, print);
    HttpServer server(options.address, options.port);
    server.mount("/object/media/", mediaFolder);
    server.mount("/shared/", options.pages);
    server.mount("/object/", options.pages + "/object");
    server.setHandler(
        [&run](const HttpRequest& request, HttpResponse& response) { return run.answer(request, response); });
    print("open " + server.url("/") + " in the television's browser\n");
    return run.wait();
}

} // namespace compliance
