#pragma once
// A station whose main side holds event lists that the test writes itself, as a walk would leave
// them: every list ends with its sentinel.
#include "recording/hex.h"
#include "stationfixture.h"

#include <string>
#include <vector>

namespace orvane::testkit {

// A job record image with operator number OPERATOR (three characters) and track number TRACK.
inline std::string jobimage(const std::string& who, const std::string& track) {
    std::string image(512, '0');
    image.replace(0, 2, "45");
    for (int i = 0; i < 3; ++i) {
        image.replace(110 + 2 * i, 2, hexbyte(static_cast<unsigned char>(who[i])));
        image.replace(212 + 2 * i, 2, std::string("3") + track[i]);
    }
    return image;
}

// A sample clock text: hh mm ss kkkk mmm.
inline std::string sampleclock(const std::string& time, int km, int metres) {
    char text[16];
    std::snprintf(text, sizeof text, "%s%04d%03d", time.c_str(), km, metres);
    return text;
}

class IndexTest : public StationTest {
  protected:
    void SetUp() override {
        start();
        st.zhu.lastposition = 100000;
    }
    Side& z() { return st.zhu; }

    struct SampleRow {
        std::int32_t position;
        float speed;
        std::string clock;
    };
    void samples(const std::vector<SampleRow>& rows) {
        Side& s = z();
        s.samplepos.clear();
        s.samplespeed.clear();
        s.sampleclock.clear();
        for (const auto& r : rows) {
            s.samplepos.push_back(r.position);
            s.samplespeed.push_back(r.speed);
            s.sampleclock.push_back(r.clock);
        }
        s.samplecount = static_cast<std::int32_t>(rows.size());
        s.samplepos.push_back(s.lastposition);
        s.samplespeed.push_back(0);
        s.sampleclock.push_back(rows.empty() ? "" : rows.back().clock);
    }
    void marks(const std::vector<std::pair<std::int32_t, std::string>>& list) {
        Side& s = z();
        s.markpos.clear();
        s.marktext.clear();
        for (const auto& [p, t] : list) {
            s.markpos.push_back(p);
            s.marktext.push_back(t);
        }
        s.markcount = static_cast<std::int32_t>(list.size());
        s.markpos.push_back(s.lastposition);
        s.marktext.push_back("");
    }
    void jobs(const std::vector<std::pair<std::int32_t, std::string>>& list) {
        Side& s = z();
        s.jobpos.clear();
        s.jobrec.clear();
        for (const auto& [p, image] : list) {
            s.jobpos.push_back(p);
            s.jobrec.push_back(image);
        }
        s.jobcount = static_cast<std::int32_t>(list.size());
        s.jobpos.push_back(s.lastposition);
        s.jobrec.push_back("");
    }
    // The kilometre of every position from FROM to TO.
    void mileage(std::int32_t from, std::int32_t to, float km) {
        z().reachgrids(to);
        for (std::int32_t p = from; p <= to; ++p) z().mileage[p][0] = km;
    }
};

} // namespace orvane::testkit
