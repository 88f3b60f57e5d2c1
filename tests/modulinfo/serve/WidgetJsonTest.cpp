#include <gmock/gmock.h>

#include "json/JsonReader.h"
#include "serve/WidgetJson.h"

namespace tessara::testing {
namespace {

/// A widget of that kind with something in every value.
std::string stateOf(WidgetKind kind) {
  WidgetOwner owner;
  const Widget widget(owner, u"w", kind,
                      {.caption = u"c",
                       .text = u"t",
                       .toolTipTitle = u"tt",
                       .toolTipText = u"tx",
                       .enabled = false,
                       .visible = true,
                       .picture = 2,
                       .items = {u"a", u"t"},
                       .index = 1,
                       .interval = 4000,
                       .value = true,
                       .gradientstartcolor = 0xFDFDFD,
                       .gradientendcolor = 0xF2EFEB,
                       .place = {15, 30, 45, 60}});
  return widgetJson(widget).text();
}

std::string valueIn(const Widget& widget, std::string_view key) {
  return JsonReader::parse(widgetJson(widget).text())[key].json().text();
}

constexpr const char* place = R"("left":15,"top":30,"width":45,"height":60)";

std::string with(const std::string& keys, const std::string& behind = "") {
  return "{" + keys + "," + place + behind + "}";
}

TEST(WidgetJson, EachKindHasItsOwnKeys) {
  const std::string seen = R"("enabled":false,"visible":true)";
  const std::string caption = R"("caption":"c")";
  const std::string tip = R"("toolTipTitle":"tt","toolTipText":"tx")";
  EXPECT_EQ(stateOf(WidgetKind::DropDownList),
            with(R"("text":"t",)" + seen + R"(,"items":["a","t"],"index":1)"));
  EXPECT_EQ(stateOf(WidgetKind::TextBox), with(R"("text":"t",)" + seen));
  EXPECT_EQ(stateOf(WidgetKind::Timer), R"({"enabled":false,"interval":4000})");
  EXPECT_EQ(stateOf(WidgetKind::Label), with(caption + "," + tip + "," + seen));
  EXPECT_EQ(stateOf(WidgetKind::Image), with(seen + R"(,"picture":2)"));
  EXPECT_EQ(stateOf(WidgetKind::PictureBox), with(seen + R"(,"picture":2)"));
  EXPECT_EQ(stateOf(WidgetKind::Button),
            with(caption + "," + tip + "," + seen + R"(,"picture":2)",
                 R"(,"gradientstartcolor":16645629,"gradientendcolor":15921131)"));
  EXPECT_EQ(stateOf(WidgetKind::Frame), with(seen));
  EXPECT_EQ(stateOf(WidgetKind::ImageList), R"({"items":["a","t"]})");
  EXPECT_EQ(stateOf(WidgetKind::Option), with(caption + "," + seen + R"(,"value":true)"));
  EXPECT_EQ(stateOf(WidgetKind::FormCaption), with(caption + "," + seen));
  EXPECT_EQ(stateOf(WidgetKind::HyperLink), with(caption + "," + seen));
}

TEST(WidgetJson, APictureIsANumberANameOrNull) {
  WidgetOwner owner;
  Widget image(owner, u"w", WidgetKind::Image);
  EXPECT_EQ(valueIn(image, "picture"), "null");
  image.setPicture(u"Upload");
  EXPECT_EQ(valueIn(image, "picture"), "\"Upload\"");
  image.setPicture(1);
  EXPECT_EQ(valueIn(image, "picture"), "1");
}

TEST(WidgetJson, NothingSelectedIsMinusOne) {
  WidgetOwner owner;
  const Widget list(owner, u"w", WidgetKind::DropDownList);
  EXPECT_EQ(valueIn(list, "index"), "-1");
  EXPECT_EQ(valueIn(list, "items"), "[]");
}

}  // namespace
}  // namespace tessara::testing
