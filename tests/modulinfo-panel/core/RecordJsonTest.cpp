#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "InLanguage.h"
#include "SampleRecord.h"
#include "record/RecordJson.h"

namespace tessara::testing {
namespace {

using Json = nlohmann::ordered_json;

Json sampleJson() {
  return Json::parse(recordJson(sampleRecord()).toStdString());
}

/// The error message for the text as file "a.json"; empty if it is accepted.
std::string complaint(const std::string& text) {
  try {
    (void)recordFromJson(QByteArray::fromStdString(text), "a.json");
  } catch (const RecordError& error) {
    return error.what();
  }
  return {};
}

TEST(RecordJson, ReadsWhatItHasWritten) {
  EXPECT_EQ(recordFromJson(recordJson(sampleRecord()), "a.json"), sampleRecord());
}

TEST(RecordJson, ReadsEveryResultOfTheCatalogueAndAnAbsentPicture) {
  ModuleRecord record = sampleRecord();
  record.status.picture.reset();
  for (int result = 0; result <= 5; ++result) {
    record.catalogue.result = static_cast<CatalogResult>(result);
    EXPECT_EQ(recordFromJson(recordJson(record), "a.json"), record) << result;
  }
}

TEST(RecordJson, KeepsTheOffsetOfTheTime) {
  const ModuleRecord read = recordFromJson(recordJson(sampleRecord()), "a.json");
  EXPECT_EQ(read.time.offsetFromUtc(), 7200);
  EXPECT_EQ(sampleJson()["time"], "2024-05-17T08:04:59+02:00");
}

TEST(RecordJson, NamesItsFormatAndVersionFirst) {
  const Json json = sampleJson();
  EXPECT_EQ(json.begin().key(), "format");
  EXPECT_EQ(json["format"], "modulinfo-record");
  EXPECT_EQ(json["version"], 1);
}

TEST(RecordJson, KeepsTextsInEveryScript) {
  ModuleRecord record = sampleRecord();
  record.status.module = QString::fromUtf8("Обрыв датчика \"а\" \n 传感器断线 \U0001F600");
  EXPECT_EQ(recordFromJson(recordJson(record), "a.json"), record);
}

TEST(RecordJson, IgnoresUnknownFields) {
  Json json = sampleJson();
  json["remark"] = "bench 3";
  json["module"]["colour"] = {1, 2};
  EXPECT_EQ(complaint(json.dump()), "");
}

TEST(RecordJson, NamesLineAndColumnOfInvalidJson) {
  EXPECT_TRUE(complaint("").starts_with(
      "a.json is not a module record: invalid JSON at line 1, column 1 (un"))
      << complaint("");
  EXPECT_NE(complaint("{\n  \"format\": nonsense\n}").find("line 2, column 14"), std::string::npos)
      << complaint("{\n  \"format\": nonsense\n}");
  EXPECT_NE(complaint("{}\nx").find("line 2, column 1"), std::string::npos) << complaint("{}\nx");
  EXPECT_NE(complaint(std::string("\x89PNG\r\n\0\0", 8)).find("invalid JSON"), std::string::npos);
  EXPECT_NE(complaint("{\"format\": \"\xff\"}").find("invalid JSON"), std::string::npos);
}

TEST(RecordJson, NamesANumberThatNoTypeHolds) {
  EXPECT_EQ(complaint("{\n  \"version\": -1e999\n}"),
            "a.json is not a module record: invalid JSON at line 2, column 14 (number overflow: "
            "-1e999).");
  EXPECT_LT(complaint(std::string(10000, '9') + "e9").size(), 200U);
}

TEST(RecordJson, RefusesJsonOfAnotherFormat) {
  for (const std::string text :
       {"{}", "[]", "null", "7", R"("modulinfo-record")", R"({"format": 1})",
        R"({"format": "modulinfo-settings", "version": 1})"}) {
    EXPECT_EQ(complaint(text), "a.json is not a module record: its format is not modulinfo-record.")
        << text;
  }
}

TEST(RecordJson, RefusesANewerVersion) {
  Json json = sampleJson();
  json["version"] = 2;
  EXPECT_EQ(complaint(json.dump()),
            "a.json was written by a newer program: it has version 2; this program reads up to "
            "version 1.");
}

TEST(RecordJson, RefusesAnInvalidVersion) {
  for (const Json& version : {Json(0), Json(-1), Json("1"), Json(1.5), Json()}) {
    Json json = sampleJson();
    json["version"] = version;
    EXPECT_NE(complaint(json.dump()).find("the field version is " + version.dump()),
              std::string::npos)
        << complaint(json.dump());
  }
}

/// Calls `change` with each field of the sample, by the path that messages call it.
void forEachField(const std::function<void(Json& json, Json& owner, const std::string& key,
                                           const std::string& path)>& change) {
  const Json sample = sampleJson();
  for (const auto& [key, value] : sample.items()) {
    Json json = sampleJson();
    change(json, json, key, key);
    if (!value.is_object()) continue;
    for (const auto& [inner, unused] : value.items()) {
      Json again = sampleJson();
      std::string path = key;
      path.append(1, '.').append(inner);
      change(again, again[key], inner, path);
    }
  }
}

TEST(RecordJson, NamesAFieldThatIsMissing) {
  forEachField([](Json& json, Json& owner, const std::string& key, const std::string& path) {
    owner.erase(key);
    const std::string expected =
        path == "format" ? "a.json is not a module record: its format is not "
                           "modulinfo-record."
                         : "a.json is a damaged module record: the field " + path + " is missing.";
    EXPECT_EQ(complaint(json.dump()), expected);
  });
}

TEST(RecordJson, NamesAFieldOfTheWrongKindAndItsValue) {
  forEachField([](Json& json, Json& owner, const std::string& key, const std::string& path) {
    if (path == "format") return;
    owner[key] = {1.5, "nonsense"};
    EXPECT_EQ(complaint(json.dump())
                  .find("a.json is a damaged module record: the field " + path +
                        " is [1.5,\"nonsense\"] but must be "),
              0U)
        << complaint(json.dump());
  });
}

TEST(RecordJson, NamesTheRangeOfANumber) {
  const std::vector<std::pair<const char*, std::vector<Json>>> wrong{
      {"vendorId", {Json(32768), Json(-32769), Json(18446744073709551615U), Json(49.5)}},
      {"deviceId", {Json("151"), Json(true)}}};
  for (const auto& [key, values] : wrong) {
    for (const Json& value : values) {
      Json json = sampleJson();
      json["module"][key] = value;
      EXPECT_EQ(complaint(json.dump()), std::string("a.json is a damaged module record: the field "
                                                    "module.") +
                                            key + " is " + value.dump() +
                                            " but must be a whole number from -32768 to 32767.");
    }
  }
  Json json = sampleJson();
  json["connection"]["address"] = 256;
  EXPECT_NE(complaint(json.dump()).find("from 0 to 255"), std::string::npos);
  json = sampleJson();
  json["status"]["picture"] = 3;
  EXPECT_NE(complaint(json.dump()).find("from 1 to 2"), std::string::npos);
  json = sampleJson();
  json["language"] = 12;
  EXPECT_NE(complaint(json.dump()).find("from 0 to 11"), std::string::npos);
  json = sampleJson();
  json["connection"]["baudrate"] = -1;
  EXPECT_NE(complaint(json.dump()).find("from 0 to 2147483647"), std::string::npos);
}

TEST(RecordJson, NamesTheValidResultsOfTheCatalogue) {
  Json json = sampleJson();
  json["catalogue"]["result"] = "perfect";
  EXPECT_NE(complaint(json.dump())
                .find("one of unusable, noDevice, noVersion, firmwareNewer, exact, firmwareOlder"),
            std::string::npos);
}

TEST(RecordJson, RefusesAnInvalidTime) {
  for (const std::string time : {"yesterday", "2024-13-01T00:00:00Z", ""}) {
    Json json = sampleJson();
    json["time"] = time;
    EXPECT_NE(complaint(json.dump()).find("must be a date and time"), std::string::npos) << time;
  }
}

TEST(RecordJson, ShortensAWrongValue) {
  Json json = sampleJson();
  json["connection"]["address"] = std::string(1000, 'x');
  EXPECT_LT(complaint(json.dump()).size(), 200U);
}

TEST(RecordJson, RefusesNestingDeeperThan64AtOnce) {
  constexpr std::size_t megabytes = 10'000'000;
  std::string objects;
  while (objects.size() < megabytes) objects += "{\"a\":";
  for (const std::string& text : {std::string(megabytes, '['), objects}) {
    EXPECT_NE(complaint(text).find("lists and objects are nested deeper than 64"),
              std::string::npos);
  }
}

TEST(RecordJson, IgnoresAnUnknownFieldThatIsNested) {
  constexpr std::size_t depth = 60;
  std::string json = sampleJson().dump();
  json.insert(1, "\"remark\":" + std::string(depth, '[') + std::string(depth, ']') + ",");
  EXPECT_EQ(complaint(json), "");
}

TEST(RecordJson, ReportsErrorsInTheLanguageInstalled) {
  const InLanguage german(u"dlg");
  Json json = sampleJson();
  json["module"]["vendorId"] = "49";
  try {
    (void)recordFromJson(QByteArray::fromStdString(json.dump()), "a.json");
    FAIL() << "taken";
  } catch (const RecordError& error) {
    EXPECT_EQ(error.text().toStdString(),
              "a.json ist ein beschädigtes Modulprotokoll: Das Feld module.vendorId ist \"49\" und "
              "muss eine ganze Zahl von -32768 bis 32767 sein.");
  }
}

TEST(RecordJson, RefusesEveryTruncation) {
  const std::string whole = recordJson(sampleRecord()).trimmed().toStdString();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_NE(complaint(whole.substr(0, length)), "") << length;
  }
}

TEST(RecordJson, ThrowsNothingElseForABrokenByte) {
  const std::string whole = recordJson(sampleRecord()).toStdString();
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const char byte : {'\0', '"', '{', '9', '\xc3'}) {
      std::string broken = whole;
      broken[place] = byte;
      EXPECT_NO_THROW((void)complaint(broken)) << place;
    }
  }
}

}  // namespace
}  // namespace tessara::testing
