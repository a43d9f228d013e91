#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "conformance/Run.h"

namespace {

using namespace vantry::conformance;

constexpr int caseFailed = 1;
constexpr int cannotRun = 2;

int usage() {
    std::cerr
        << "usage: vantry-conformance [--strict] FILE.jsonl...\n"
           "Runs the cases of the files against the product and counts, for each operation, those that\n"
           "passed/failed/are not supported.\n"
           "  --strict  also fail when a case could not be run, its operation not being supported\n";
    return cannotRun;
}

}  // namespace

int main(int count, char** arguments) {
    bool strict = false;
    std::vector<std::string> files;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--strict")
            strict = true;
        else if (argument.starts_with("-"))
            return usage();
        else
            files.push_back(argument);
    }
    if (files.empty())
        return usage();

    Report report;
    for (const auto& file : files) {
        std::ifstream lines(file, std::ios::binary);
        try {
            // A folder opens, and fails only when it is read.
            if (!lines || lines.peek() == std::ifstream::traits_type::eof())
                throw UnreadableCase("cannot be read, or is empty");
            run(readCases(lines), report, std::cout);
        } catch (const UnreadableCase& failure) {
            std::cerr << file << ": " << failure.what() << "\n";
            return cannotRun;
        }
    }
    const Counts sum = printSummary(report, std::cout);
    return sum.failed > 0 || (strict && sum.unsupported > 0) ? caseFailed : 0;
}
