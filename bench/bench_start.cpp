// How long the program takes from its start to a filled window, beside an empty window with the same toolbar,
// and how much memory it holds then. The runs alternate, so that a drifting machine drifts for both.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Run
{
    double seconds = 0;
    double processor = 0; ///< seconds; others on the machine do not count into it
    long peakKilobytes = 0;
};

double seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Run runOnce(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s did not end well\n", arguments[0]);
        std::exit(1);
    }
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
            seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss};
}

/// Others on the machine only ever add to a time, so the shortest of several is the nearest to the truth.
double shortest(const std::vector<Run>& runs, double Run::*time)
{
    return (*std::ranges::min_element(runs, {}, time)).*time;
}

} // namespace

// bench_start EMPTYWINDOW JOBWRIGHT NAME FOLDER [NAME FOLDER ...]
int main(int argc, char** argv)
{
    if (argc < 5 || argc % 2 == 0) {
        std::fprintf(stderr, "usage: bench_start EMPTYWINDOW JOBWRIGHT NAME FOLDER [NAME FOLDER ...]\n");
        return 2;
    }
    constexpr int rounds = 15;
    std::printf("%-12s %12s %12s %8s %16s %12s\n", "campaign", "start (s)", "empty (s)", "ratio",
                "processor ratio", "peak (MB)");
    for (int i = 3; i + 1 < argc; i += 2) {
        const std::vector<std::string> program{argv[2], "--folder", argv[i + 1], "--no-splash",
                                               "--exit-when-shown"};
        const std::vector<std::string> empty{argv[1]};
        runOnce(program); // the first run reads everything from the disk and makes the copy of the day
        runOnce(empty);
        std::vector<Run> starts;
        std::vector<Run> empties;
        for (int round = 0; round < rounds; ++round) {
            starts.push_back(runOnce(program));
            empties.push_back(runOnce(empty));
        }
        const double start = shortest(starts, &Run::seconds);
        const double yardstick = shortest(empties, &Run::seconds);
        const long peak = std::ranges::max_element(starts, {}, &Run::peakKilobytes)->peakKilobytes;
        std::printf("%-12s %12.3f %12.3f %8.2f %16.2f %12.1f\n", argv[i], start, yardstick, start / yardstick,
                    shortest(starts, &Run::processor) / shortest(empties, &Run::processor),
                    static_cast<double>(peak) / 1024.0);
    }
    return 0;
}
