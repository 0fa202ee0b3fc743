#include "statements/jobs.h"

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace kelvar {

namespace {

volatile std::sig_atomic_t interrupted = 0;

void note_interruption(int signal) {
    interrupted = signal;
}

// Without SA_RESTART, so that nobody goes on waiting for a pipe.
void heed_signals() {
    struct sigaction action {};
    action.sa_handler = note_interruption;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);  // whoever takes it may be gone
}

void stop_when_interrupted() {
    if (interrupted != 0) {
        throw Interrupted{interrupted};
    }
}

// What comes through a pipe before the texts themselves.
struct Announced {
    enum What : std::uint32_t { accepted, refused, failed };
    What what = accepted;
    std::uint64_t results = 0;  // bytes, or those of what went wrong
    std::uint64_t payments = 0;
};

void send(int pipe, Announced::What what, const Made& made) {
    const Announced announced{what, made.results.size(), made.payments.size()};
    std::string all(reinterpret_cast<const char*>(&announced), sizeof announced);
    all += made.results;
    all += made.payments;
    for (std::string_view rest = all; !rest.empty();) {
        const ssize_t taken = write(pipe, rest.data(), rest.size());
        stop_when_interrupted();
        if (taken < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category());
        }
        rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(taken, 0)));
    }
}

// A process with every so many lines, and the pipe from it.
class Worker {
public:
    Worker() = default;
    ~Worker() {
        close_pipe();
        if (process_ > 0) {
            kill(process_, SIGTERM);
            end();
        }
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    Worker(Worker&&) = delete;
    Worker& operator=(Worker&&) = delete;

    // `work` gets the pipe, in another process.
    void start(const std::function<void(int pipe)>& work) {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0 || (process_ = fork()) < 0) {
            throw std::system_error(errno, std::generic_category(), "no further process");
        }
        if (process_ == 0) {
            close(ends[0]);
            int code = 0;
            try {
                work(ends[1]);
            } catch (...) {
                code = 1;  // nobody takes what went wrong
            }
            _exit(code);  // what this process did not make it does not clear away
        }
        close(ends[1]);
        pipe_ = ends[0];
    }

    // What the process made of its next line; nothing when it has come to the end.
    std::optional<Made> next() {
        Announced announced;
        const std::size_t got = read_up_to(reinterpret_cast<char*>(&announced), sizeof announced);
        if (got == 0 && end() == 0) {
            return std::nullopt;
        }
        Made made{.refused = announced.what == Announced::refused};
        if (got < sizeof announced || !read_text(made.results, announced.results) ||
            !read_text(made.payments, announced.payments)) {
            throw std::runtime_error("A process has ended before its work was done.");
        }
        if (announced.what == Announced::failed) {
            throw std::runtime_error(made.results);
        }
        return made;
    }

    void close_pipe() {
        if (pipe_ >= 0) {
            close(std::exchange(pipe_, -1));
        }
    }

private:
    std::size_t read_up_to(char* bytes, std::size_t size) {
        std::size_t got = 0;
        while (got < size) {
            stop_when_interrupted();
            const ssize_t count = read(pipe_, bytes + got, size - got);
            if (count == 0 || (count < 0 && errno != EINTR)) {
                break;
            }
            got += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        }
        return got;
    }

    bool read_text(std::string& text, std::uint64_t size) {
        text.resize(size);
        return read_up_to(text.data(), size) == size;
    }

    // Its exit code, once.
    int end() {
        int status = 0;
        while (process_ > 0 && waitpid(process_, &status, 0) < 0 && errno == EINTR) {
        }
        process_ = 0;
        return status;
    }

    pid_t process_ = 0;
    int pipe_ = -1;
};

}  // namespace

void share_lines(const std::filesystem::path& table, int jobs,
                 const std::function<MakeLine(const CsvRecord& header)>& begin,
                 const std::function<void(const Made&)>& take) {
    heed_signals();
    const auto all = static_cast<std::size_t>(jobs);
    std::vector<Worker> workers(all);
    const auto work = [&](std::size_t own, int pipe) {
        try {
            for (Worker& other : workers) {
                other.close_pipe();
            }
            MakeLine make;
            std::size_t number = 0;
            read_csv(table, [&](const CsvRecord& record) {
                if (!make) {
                    make = begin(record);
                } else if (number++ % all == own) {
                    const Made made = make(record);
                    send(pipe, made.refused ? Announced::refused : Announced::accepted, made);
                }
                return true;
            });
            if (!make) {
                throw InputError(fmt::format("{} is empty.", table.string()));
            }
        } catch (const std::exception& error) {
            send(pipe, Announced::failed, {.results = error.what()});
        }
    };
    for (std::size_t own = 0; own < all; ++own) {
        workers[own].start([&](int pipe) { work(own, pipe); });
    }
    for (std::size_t line = 0;; ++line) {
        const auto made = workers[line % all].next();
        if (!made) {
            break;
        }
        take(*made);
    }
    for (Worker& worker : workers) {
        if (worker.next()) {
            throw InputError(fmt::format("{} was changed while it was read.", table.string()));
        }
    }
}

}  // namespace kelvar
