#include "xml/XmlParser.h"

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include <expat.h>

#include "base/Text.h"
#include "xml/XmlCause.h"
#include "xml/XmlDocumentBuilder.h"

namespace tessara {
namespace {

static_assert(std::is_same_v<XML_Char, char>, "expat must be built for UTF-8");

/// True for 1.0 and later minor versions, which are parsed as 1.0.
bool isVersionOne(std::string_view version) {
  constexpr std::string_view start = "1.";
  return version.starts_with(start) && version.size() > start.size() &&
         version.find_first_not_of("0123456789", start.size()) == std::string_view::npos;
}

/// One run of the parser over one document.
class XmlRun {
 public:
  XmlRun(std::string_view bytes, XmlPlaces places)
      : bytes_(bytes), keepsPlaces_(places == XmlPlaces::Kept), parser_(XML_ParserCreate(nullptr)) {
    XML_Parser parser = parser_.get();
    XML_SetUserData(parser, this);
    XML_SetXmlDeclHandler(parser, onDeclaration);
    XML_SetUnknownEncodingHandler(parser, onUnknownEncoding, nullptr);
    XML_SetEntityDeclHandler(parser, onEntity);
    XML_SetElementHandler(parser, onStart, onEnd);
    XML_SetCharacterDataHandler(parser, onCharacters);
    XML_SetCommentHandler(parser, onComment);
    XML_SetProcessingInstructionHandler(parser, onInstruction);
    XML_SetCdataSectionHandler(parser, onDataStart, onDataEnd);
    // Parameter entities are expanded too; external ones are not read without a handler.
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
  }

  std::variant<XmlDocument, XmlFault> parse() {
    if (bytes_.size() > xmlLimit::bytes) {
      return XmlFault{{}, "larger than 256 MiB"};
    }
    if (XML_Parse(parser_.get(), bytes_.data(), static_cast<int>(bytes_.size()), XML_TRUE) ==
        XML_STATUS_OK) {
      return builder_.take();
    }
    return refusal_ ? *refusal_ : XmlFault{place(), cause()};
  }

 private:
  struct Release {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };

  static XmlRun& runOf(void* data) { return *static_cast<XmlRun*>(data); }

  static void onDeclaration(void* data, const char* version, const char* encoding, int) {
    XmlRun& run = runOf(data);
    if (version != nullptr && !isVersionOne(version)) {
      run.refuse("XML version \"" + std::string(version) + "\"; version 1.0 is read");
    }
    run.encoding_ = encoding == nullptr ? "" : encoding;
  }

  /// Expat knows ISO 8859-1 by its registered name alone.
  static int onUnknownEncoding(void*, const char* name, XML_Encoding* info) {
    if (!equalIgnoringCase(name, "latin1")) {
      return XML_STATUS_ERROR;
    }
    for (int byte = 0; byte < 256; ++byte) {
      info->map[byte] = byte;
    }
    return XML_STATUS_OK;
  }

  static void onEntity(void* data, const char*, int, const char*, int, const char*, const char*,
                       const char*, const char*) {
    XmlRun& run = runOf(data);
    if (++run.entities_ > xmlLimit::entities) {
      run.refuse("more than " + std::to_string(xmlLimit::entities) + " entities");
    }
  }

  static void onStart(void* data, const char* tag, const char** attributes) {
    XmlRun& run = runOf(data);
    if (run.builder_.depth() == xmlLimit::depth) {
      run.refuse("elements nested deeper than " + std::to_string(xmlLimit::depth));
    }
    if (run.isRefused()) {
      return;
    }
    run.builder_.open(tag, attributes);
    if (run.keepsPlaces_) {
      run.builder_.place(run.place());
    }
  }

  static void onEnd(void* data, const char*) {
    XmlRun& run = runOf(data);
    if (!run.isRefused()) {
      run.builder_.close();
    }
  }

  static void onCharacters(void* data, const char* text, int size) {
    runOf(data).builder_.characters({text, static_cast<std::size_t>(size)});
  }
  static void onComment(void* data, const char*) { runOf(data).builder_.markup(); }
  static void onInstruction(void* data, const char*, const char*) { runOf(data).builder_.markup(); }
  static void onDataStart(void* data) { runOf(data).builder_.markup(); }
  static void onDataEnd(void* data) { runOf(data).builder_.endData(); }

  void refuse(std::string cause) {
    if (!isRefused()) {
      refusal_ = XmlFault{place(), std::move(cause)};
      XML_StopParser(parser_.get(), XML_FALSE);
    }
  }
  [[nodiscard]] bool isRefused() const { return refusal_.has_value(); }

  [[nodiscard]] XmlPlace place() const {
    return {XML_GetCurrentLineNumber(parser_.get()), XML_GetCurrentColumnNumber(parser_.get()) + 1};
  }

  [[nodiscard]] std::string cause() const {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    const char* known = XML_ErrorString(error);
    switch (error) {
      case XML_ERROR_INVALID_TOKEN:
        return tokenCause();
      case XML_ERROR_TAG_MISMATCH:
        return "mismatched end tag; <" + builder_.openTag() + "> is open";
      case XML_ERROR_NO_ELEMENTS:
        return builder_.depth() == 0 ? known
                                     : "the end is missing; <" + builder_.openTag() + "> is open";
      case XML_ERROR_UNKNOWN_ENCODING:
        return "unknown encoding \"" + encoding_ + '"';
      default:
        return known;
    }
  }

  [[nodiscard]] std::string tokenCause() const {
    // The units of UTF-16 mean nothing as bytes.
    const bool isWide = bytes_.substr(0, 2).find_first_of(std::string_view("\0\xFE\xFF", 3)) !=
                        std::string_view::npos;
    const XML_Index index = XML_GetCurrentByteIndex(parser_.get());
    return isWide || index < 0 ? XML_ErrorString(XML_ERROR_INVALID_TOKEN)
                               : invalidTokenCause(bytes_, static_cast<std::size_t>(index));
  }

  std::string_view bytes_;
  bool keepsPlaces_;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, Release> parser_;
  XmlDocumentBuilder builder_;
  std::string encoding_;
  std::size_t entities_ = 0;
  /// What expat accepts but this parser refuses.
  std::optional<XmlFault> refusal_;
};

}  // namespace

std::variant<XmlDocument, XmlFault> parseXml(std::string_view bytes, XmlPlaces places) {
  return XmlRun(bytes, places).parse();
}

}  // namespace tessara
