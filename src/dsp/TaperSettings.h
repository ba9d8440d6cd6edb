#pragma once
// The tapering window handed to a pitch detector: its type (0 cosine,
// 1 Gauss, 2 Hann, 3 Hamming, 4 Lanczos) and an optional parameter, which no
// window reads today.

#include <cstdint>

namespace zt {

class TaperSettings {
public:
    explicit TaperSettings(std::int32_t type) : ttype_(type) {}
    TaperSettings(std::int32_t type, double param)
        : ttype_(type), paramNull_(false), param_(param) {}

    std::int32_t getType() const { return ttype_; }
    void setType(std::int32_t type) { ttype_ = type; }
    double getParam() const { return param_; }
    void setParam(double param) {
        param_ = param;
        paramNull_ = false;
    }
    bool isParamNull() const { return paramNull_; }
    void nullifyParam() { paramNull_ = true; }

private:
    std::int32_t ttype_;
    bool paramNull_ = true;
    double param_ = 0.0;
};

}  // namespace zt
