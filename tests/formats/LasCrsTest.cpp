// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "las/CrsDescription.h"
#include "las/LasCrs.h"
#include "support/LasBytes.h"
#include "support/TempFolder.h"

namespace Ovr::Formats {
namespace {

using Support::lasRecord;

// Texts and numbers as the OGC's well-known text (01-009 and 18-010), GeoTIFF 1.0 and the EPSG
// register have them.
const std::string kGeographic =
    R"w(GEOGCS["NAD83",DATUM["D",SPHEROID["GRS 1980",6378137,298.257222101]],PRIMEM["Greenwich",0],)w"
    R"w(UNIT["degree",0.0174532925199433,AUTHORITY["EPSG","9122"]],AUTHORITY["EPSG","4269"]])w";
const std::string kOregon = R"w(PROJCS["NAD83 / Oregon LCC (m)",)w" + kGeographic +
                            R"w(,PROJECTION["P"],UNIT["metre",1,AUTHORITY["EPSG","9001"]],)w"
                            R"w(AXIS["Easting",EAST],AUTHORITY["EPSG","2991"]])w";
const std::string kHeights =
    R"w(VERT_CS["NAVD88 height (ftUS)",VERT_DATUM["V",2005],)w"
    R"w(UNIT["US survey foot",0.304800609601219],AUTHORITY["EPSG","6360"]])w";

/// "name|code|unit" of the parts: "whole; horizontal; vertical".
std::string shown(const CrsDescription& crs) {
    const auto part = [](const CrsPart& p) { return p.name + "|" + p.code + "|" + p.unit.name; };
    return crs.kind + "; " + crs.name + "|" + crs.code + "; " + part(crs.horizontal) +
           (crs.vertical ? "; " + part(*crs.vertical) : std::string());
}

TEST(LasCrs, NamesSystemsOfWellKnownText) {
    const struct {
        const char* name;
        std::string text;
        const char* shown;
        std::size_t oddities = 0;
    } cases[] = {
        {"geographic", kGeographic, "geographic; NAD83|EPSG:4269; NAD83|EPSG:4269|degree"},
        {"projected, with blanks and round brackets",
         R"w(PROJCS ( "a ""b"" c" , GEOGCS("g",UNIT("degree",0.0174532925199433)) ,
            UNIT ( "Foot_US" , 0.3048006096012192 ) ))w",
         "projected; a \"b\" c|; a \"b\" c||US survey foot"},
        {"compound", R"w(COMPD_CS["both",)w" + kOregon + "," + kHeights + "]",
         "projected; both|; NAD83 / Oregon LCC (m)|EPSG:2991|metre; "
         "NAVD88 height (ftUS)|EPSG:6360|US survey foot"},
        {"vertical system within the projected one, name and factor at odds",
         R"w(PROJCS["p",UNIT["foot",0.3048],VERTCS["h",UNIT["US survey foot",1.0]]])w",
         "projected; p|; p||foot; h||US survey foot", 1},
        {"second version, unit of the axes",
         R"w(COMPOUNDCRS["c",PROJCRS["p",BASEGEOGCRS["b",ANGLEUNIT["degree",0.0174532925199433]],)w"
         R"w(CS[Cartesian,2],AXIS["(E)",east,ORDER[1],LENGTHUNIT["metre",1]],)w"
         R"w(AXIS["(N)",north,ORDER[2],LENGTHUNIT["metre",1]],ID["EPSG",25832]],)w"
         R"w(VERTCRS["h",CS[vertical,1],AXIS["up",up],LENGTHUNIT["metre",1],ID["EPSG",7837]]])w",
         "projected; c|; p|EPSG:25832|metre; h|EPSG:7837|metre"},
        {"three axes",
         R"w(GEOGCRS["g",CS[ellipsoidal,3],)w"
         R"w(AXIS["lat",north,ANGLEUNIT["degree",0.0174532925199433]],)w"
         R"w(AXIS["lon",east,ANGLEUNIT["degree",0.0174532925199433]],)w"
         R"w(AXIS["h",up,LENGTHUNIT["metre",1]],ID["EPSG",4979]])w",
         "geographic; g|EPSG:4979; g|EPSG:4979|degree; ||metre"},
        {"bound", "BOUNDCRS[SOURCECRS[" + kGeographic + "],TARGETCRS[" + kOregon + "]]",
         "geographic; NAD83|EPSG:4269; NAD83|EPSG:4269|degree"},
        {"a unit of its own", R"w(LOCAL_CS["site",UNIT["link",0.201168]])w",
         "local; site|; site||link"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto crs = describeWkt(c.text);
        ASSERT_TRUE(crs);
        EXPECT_EQ(shown(*crs), c.shown);
        EXPECT_EQ(crs->oddities.size(), c.oddities);
    }
    std::string deep;
    for (int i = 0; i < 100000; ++i) {
        deep += "A[";
    }
    for (const std::string& text :
         {std::string(), std::string("unknown"), std::string(R"w(GEOGCS["a)w"),
          std::string(R"w(GEOGCS["a"]])w"), std::string(R"w(GEOGCS["a")])w"), deep, kHeights}) {
        EXPECT_FALSE(describeWkt(text)) << text.substr(0, 40);
    }
}

TEST(LasCrs, NamesSystemsOfGeoKeys) {
    using Keys = std::vector<unsigned>;
    const struct {
        const char* name;
        Keys keys;
        const char* shown;
        const char* base = "";
    } cases[] = {
        {"projected in US survey feet, heights too",
         {1,    1, 0, 7,    1024, 0, 1, 1,    1026, 34737, 8, 0,    2049, 34737, 6, 8,
          3072, 0, 1, 2903, 3076, 0, 1, 9003, 4096, 0,     1, 5103, 4099, 0,     1, 9003},
         "projected; |EPSG:2903; |EPSG:2903|US survey foot; |EPSG:5103|US survey foot",
         "NAD83"},
        {"zone of a known grid without a unit",
         {1, 1, 0, 2, 1024, 0, 1, 1, 3072, 0, 1, 32632},
         "projected; |EPSG:32632; |EPSG:32632|metre"},
        {"a projection of the user's",
         {1, 1, 0, 2, 1024, 0, 1, 1, 3072, 0, 1, 32767},
         "projected; |; ||"},
        {"unit by its size",
         {1, 1, 0, 3, 1024, 0, 1, 1, 3076, 0, 1, 32767, 3077, 34736, 1, 1},
         "projected; |; ||foot"},
        {"geographic",
         {1, 1, 0, 2, 1024, 0, 1, 2, 2048, 0, 1, 4326},
         "geographic; |EPSG:4326; |EPSG:4326|degree"},
        {"counts more keys than there are, values out of reach",
         {1, 1, 0, 999, 1024, 0, 1, 1, 3073, 34737, 9, 999, 3077, 34736, 1, 999},
         "projected; |; ||"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto crs = describeGeoKeys(c.keys, {0.0, 0.3048}, "unknown|NAD83|");
        ASSERT_TRUE(crs);
        EXPECT_EQ(crs->base, c.base);
        EXPECT_EQ(shown(*crs), c.shown);
    }
    EXPECT_FALSE(describeGeoKeys({}, {}, ""));
    EXPECT_FALSE(describeGeoKeys({1, 1, 0}, {}, ""));
    EXPECT_FALSE(describeGeoKeys({1, 1, 0, 5}, {}, ""));
}

TEST(LasCrs, TakesTheRecordThatCounts) {
    // 1024 = 1 (projected), 3072 = 32632, as numbers of 16 bits.
    std::string keys(24, '\0');
    const std::uint16_t numbers[] = {1, 1, 0, 2, 1024, 0, 1, 1, 3072, 0, 1, 32632};
    for (std::size_t i = 0; i < 12; ++i) {
        Support::poke(keys, 2 * i, numbers[i]);
    }
    const std::string geo = lasRecord("LASF_Projection", 34735, keys);
    const std::string wkt = lasRecord("LASF_Projection", 2112, kGeographic + '\0');
    const std::string extended = lasRecord("LASF_Projection", 2112, kGeographic, true);
    const struct {
        const char* name;
        std::string before;
        std::uint32_t count;
        std::string after;
        std::uint16_t encoding;
        CrsSource source;
        const char* code;
        const char* warning;
    } cases[] = {
        {"none", "", 0, "", 0, CrsSource::None, "", ""},
        {"keys", geo, 1, "", 0, CrsSource::GeoKeys, "EPSG:32632", ""},
        {"text", wkt, 1, "", 0, CrsSource::Wkt, "EPSG:4269", ""},
        {"both, keys count", geo + wkt, 2, "", 0, CrsSource::GeoKeys, "EPSG:32632", ""},
        {"both, text counts", geo + wkt, 2, "", 16, CrsSource::Wkt, "EPSG:4269", ""},
        {"after the points", "", 0, extended, 16, CrsSource::Wkt, "EPSG:4269", ""},
        {"another user's", lasRecord("liblas", 2112, kGeographic), 1, "", 16, CrsSource::None, "",
         ""},
        {"broken text", lasRecord("LASF_Projection", 2112, "GEOGCS[\"a"), 1, "", 16,
         CrsSource::None, "", "record 2112 of LASF_Projection holds no readable well-known text"},
        {"cut after the points", "", 0, extended.substr(0, 100), 16, CrsSource::None, "",
         "extended variable-length record 1 of 1 reaches past the end of the file"},
    };
    Support::TempFolder folder;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Support::LasBytes las;
        las.minor = 4;
        las.format = 6;
        las.encoding = c.encoding;
        las.vlrs = c.before;
        las.vlrCount = c.count;
        las.points.resize(1);
        std::string bytes = las.bytes();
        Support::poke(bytes, 235, static_cast<std::uint64_t>(bytes.size()));
        Support::poke(bytes, 243, std::uint32_t{c.after.empty() ? 0U : 1U});
        InputFile file;
        LasHeader header;
        Remarks remarks;
        ASSERT_FALSE(file.open(folder.write("a.las", bytes + c.after)));
        ASSERT_FALSE(readLasHeader(file, header, remarks));
        const LasCrs found = readLasCrs(file, header, remarks);
        EXPECT_EQ(found.source, c.source);
        EXPECT_EQ(found.crs.code, c.code);
        const std::vector<std::string> warnings = remarks.warnings();
        ASSERT_EQ(warnings.size(), std::string(c.warning).empty() ? 0U : 1U);
        EXPECT_TRUE(warnings.empty() || warnings[0].find(c.warning) != std::string::npos)
            << warnings[0];
    }
}

}  // namespace
}  // namespace Ovr::Formats
