// The speeds that the library promises itself.
#pragma once

#include "judgement.hpp"
#include "report.hpp"

namespace bench {

// Nanoseconds per pixel that another build's program measured, by everything that precedes them in
// a line of its CSV file.
class OtherBuild {
public:
    OtherBuild() = default;
    explicit OtherBuild(const std::string& csvFile);

    std::optional<double> better(const Row& row, std::string_view table) const;

private:
    std::vector<std::pair<std::string, double>> times;
};

// Of all targets that the rows have measurements for.
Judgement judge(const std::vector<Row>& rows, const OtherBuild& other);

}  // namespace bench
