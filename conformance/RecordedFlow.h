#pragma once

#include <string>
#include <vector>

#include "Vantry/documents/DocumentFlow.h"

namespace vantry::conformance {

/// Keeps what a document writes, instead of making pages of it.
class RecordedFlow final : public DocumentFlow {
public:
    struct Line {
        std::string text;
        double size = 0;
        bool bold = false;

        friend bool operator==(const Line&, const Line&) = default;
    };

    using DocumentFlow::text;
    void text(const std::string& utf8, double size, bool bold) override {
        lines.push_back({utf8, size, bold});
        calls.push_back("text " + utf8);
    }
    void advance(double height) override { calls.push_back("advance " + shortest(height)); }
    void ensure(double height) override { calls.push_back("ensure " + shortest(height)); }
    void storyboard(const Shot& shot) override { calls.push_back("storyboard " + shot.code.utf8()); }

    std::vector<Line> lines;         ///< the texts
    std::vector<std::string> calls;  ///< everything, such as "ensure 80" and "text First act"

private:
    static std::string shortest(double number) { return std::to_string(static_cast<int>(number)); }
};

}  // namespace vantry::conformance
