#include "PictureFiles.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tessara::testing {
namespace {

using namespace std::string_literals;

/// 8 by 8 shades of grey.
constexpr std::string_view jpegInHex =
    "ffd8ffe000104a46494600010101006000600000ffdb004300ffffffffffffffffffffffffffffffffffffff"
    "ffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffff"
    "ffffc0000b080008000801011100ffc4001f0000010501010101010100000000000000000102030405060708"
    "090a0bffc400b5100002010303020403050504040000017d0102030004110512213141061351610722711432"
    "8191a1082342b1c11552d1f02433627282090a161718191a25262728292a3435363738393a43444546474849"
    "4a535455565758595a636465666768696a737475767778797a838485868788898a92939495969798999aa2a3"
    "a4a5a6a7a8a9aab2b3b4b5b6b7b8b9bac2c3c4c5c6c7c8c9cad2d3d4d5d6d7d8d9dae1e2e3e4e5e6e7e8e9ea"
    "f1f2f3f4f5f6f7f8f9faffda0008010100003f0045afffd9";

std::string fromHex(std::string_view digits) {
  std::string bytes;
  for (std::size_t at = 0; at < digits.size(); at += 2) {
    bytes += static_cast<char>(std::stoi(std::string(digits.substr(at, 2)), nullptr, 16));
  }
  return bytes;
}

std::string bigEndian(std::uint32_t number) {
  std::string bytes;
  for (const std::uint32_t shift : {24U, 16U, 8U, 0U}) {
    bytes += static_cast<char>(number >> shift & 0xFFU);
  }
  return bytes;
}

std::string littleEndian(std::uint32_t number, std::size_t size = 4) {
  const std::string bytes = bigEndian(number);
  return std::string(bytes.rbegin(), bytes.rend()).substr(0, size);
}

/// The sum at the end of a PNG chunk.
std::uint32_t crc(std::string_view bytes) {
  constexpr std::uint32_t polynomial = 0xEDB88320U;
  std::uint32_t sum = ~0U;
  for (const char byte : bytes) {
    sum ^= static_cast<std::uint8_t>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ ((sum & 1U) != 0 ? polynomial : 0);
  }
  return ~sum;
}

/// Bytes as a zlib stream that stores them.
std::string stored(std::string_view bytes) {
  constexpr std::uint32_t modulus = 65521;
  constexpr std::size_t maxBlock = 65535;
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const char byte : bytes) {
    low = (low + static_cast<std::uint8_t>(byte)) % modulus;
    high = (high + low) % modulus;
  }
  std::string stream = "\x78\x01";
  do {
    const std::string_view block = bytes.substr(0, maxBlock);
    bytes.remove_prefix(block.size());
    const auto size = static_cast<std::uint32_t>(block.size());
    stream += bytes.empty() ? '\1' : '\0';
    stream += littleEndian(size, 2) + littleEndian(~size, 2) + std::string(block);
  } while (!bytes.empty());
  return stream + bigEndian(high << 16U | low);
}

std::string chunk(const std::string& type, const std::string& data) {
  return bigEndian(static_cast<std::uint32_t>(data.size())) + type + data +
         bigEndian(crc(type + data));
}

std::string pngHeader(std::uint32_t width, std::uint32_t height) {
  return "\x89PNG\r\n\x1A\n" +
         chunk("IHDR", bigEndian(width) + bigEndian(height) + "\x08\x00\x00\x00\x00"s);
}

/// Grey pixels, of which only the first `rows` are there.
std::string png(std::uint32_t width, std::uint32_t height, std::uint32_t rows) {
  const std::string pixels(std::size_t{rows} * (std::size_t{width} + 1), '\0');
  return pngHeader(width, height) + chunk("IDAT", stored(pixels)) + chunk("IEND", "");
}

/// 24 bits a pixel, of which `bytes` bytes are there.
std::string bmp(std::uint32_t width, std::uint32_t height, std::size_t bytes) {
  constexpr std::uint32_t headers = 54;
  return "BM" + littleEndian(headers + static_cast<std::uint32_t>(bytes)) + littleEndian(0) +
         littleEndian(headers) + littleEndian(40) + littleEndian(width) + littleEndian(height) +
         littleEndian(1, 2) + littleEndian(24, 2) + std::string(24, '\0') +
         std::string(bytes, '\x7F');
}

/// An icon of one picture, a PNG or the body of a BMP.
std::string ico(const std::string& picture, char side) {
  return "\0\0\1\0\1\0"s + side + side + "\0\0\1\0\x18\0"s +
         littleEndian(static_cast<std::uint32_t>(picture.size())) + littleEndian(22) + picture;
}

std::string icoOfTwo(const std::string& first, const std::string& second) {
  const auto entry = [](const std::string& picture, std::size_t offset) {
    return "\2\2\0\0\1\0\x18\0"s + littleEndian(static_cast<std::uint32_t>(picture.size())) +
           littleEndian(static_cast<std::uint32_t>(offset));
  };
  return "\0\0\1\0\2\0"s + entry(first, 38) + entry(second, 38 + first.size()) + first + second;
}

/// The body of a BMP in an icon of 2 by 2 pixels: twice the height, then the colours, then the
/// mask.
std::string icoBody(std::uint32_t width, std::uint32_t height) {
  return littleEndian(40) + littleEndian(width) + littleEndian(2 * height) + littleEndian(1, 2) +
         littleEndian(24, 2) + std::string(24, '\0') + std::string(2 * 8, '\x7F') +
         std::string(2 * 4, '\0');
}

/// One colour from a table of two.
std::string gif(std::uint32_t width, std::uint32_t height, const std::string& pixels) {
  return "GIF89a" + littleEndian(width, 2) + littleEndian(height, 2) + "\x80\0\0"s +
         "\0\0\0\xFF\xFF\xFF"s + "\x2C\0\0\0\0"s + littleEndian(width, 2) +
         littleEndian(height, 2) + "\0\x02"s + pixels;
}
const std::string onePixel = "\x02\x44\x01\x00\x3B"s;

/// A JPEG with another size in its header.
std::string jpeg(std::uint32_t width, std::uint32_t height) {
  std::string bytes = fromHex(jpegInHex);
  const auto frame = bytes.find("\xFF\xC0"s);
  return bytes.replace(frame + 5, 4, bigEndian(height).substr(2) + bigEndian(width).substr(2));
}

std::string front(const std::string& bytes, std::size_t size) {
  return bytes.substr(0, size);
}

std::string svg(const std::string& content, const std::string& before = {}) {
  return before +
         "<svg xmlns=\"http://www.w3.org/2000/svg\" "
         "xmlns:xlink=\"http://www.w3.org/1999/xlink\" viewBox=\"0 0 4 4\">" +
         content + "</svg>";
}
const std::string square = "<rect width=\"4\" height=\"4\"/>";

std::string utf16(const std::string& text) {
  std::string bytes = "\xFF\xFE";
  for (const char sign : text) bytes += std::string{sign, '\0'};
  return bytes;
}

std::string repeated(const std::string& text, std::size_t count) {
  std::string all;
  for (std::size_t at = 0; at < count; ++at) all += text;
  return all;
}

/// Entities, or groups, each of which repeats the one before it ten times.
std::string entityBomb() {
  std::string declarations = "<!ENTITY a0 \"lol\">";
  for (int level = 1; level < 10; ++level) {
    const std::string before = "&a" + std::to_string(level - 1) + ";";
    declarations += "<!ENTITY a" + std::to_string(level) + " \"" + repeated(before, 10) + "\">";
  }
  return svg("<text>&a9;</text>", "<!DOCTYPE svg [" + declarations + "]>");
}
std::string useBomb() {
  std::string groups = "<g id=\"g0\">" + square + "</g>";
  for (int level = 1; level < 10; ++level) {
    const std::string before = "<use xlink:href=\"#g" + std::to_string(level - 1) + "\"/>";
    groups += "<g id=\"g" + std::to_string(level) + "\">" + repeated(before, 10) + "</g>";
  }
  return svg(groups);
}

}  // namespace

std::vector<PictureSample> pictures() {
  const std::string greyJpeg = fromHex(jpegInHex);
  return {
      {"PNG", png(2, 2, 2)},
      {"PNG with bytes behind its end", png(2, 2, 2) + "more"},
      {"PNG of the largest size", png(4096, 2048, 2048)},
      {"JPEG", greyJpeg},
      {"GIF", gif(1, 1, onePixel)},
      {"BMP", bmp(2, 2, 16)},
      {"ICO with a BMP", ico(icoBody(2, 2), 2)},
      {"ICO with a PNG", ico(png(2, 2, 2), 2)},
      {"ICO with two pictures", icoOfTwo(icoBody(2, 2), png(2, 2, 2))},
      {"SVG", svg(square)},
      {"SVG without a namespace", "<svg>" + square + "</svg>"},
      {"SVG with declarations",
       svg(square,
           "\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- drawn -->\n<!DOCTYPE svg PUBLIC "
           "'-//W3C//DTD SVG 1.1//EN' 'http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd'>")},
      {"SVG behind blanks", " \r\n" + svg(square)},
      {"SVG in UTF-16", utf16(svg(square))},
      {"SVG with an entity", svg("<text>&maker;</text>", "<!DOCTYPE svg [<!ENTITY maker 'M'>]>")},
      {"SVG that repeats an element",
       svg("<g id='a'>" + square + "</g><use xlink:href='#a'/><use href='#a'/>")},
      {"SVG with nonsense in an attribute", svg("<path d='nonsense'/><rect width='-x'/>")},
  };
}

std::vector<PictureSample> notPictures() {
  const std::string grey = png(2, 2, 2);
  const std::string greyJpeg = fromHex(jpegInHex);
  const std::string garbage(1000, '\x5A');
  return {
      {"nothing", ""},
      {"text", "text"},
      {"blanks", " \n "},
      {"PNG with half a signature", "\x89PN"},
      {"PNG that ends with the signature", front(grey, 8)},
      {"PNG that ends with the header", pngHeader(2, 2)},
      {"PNG that ends in its pixels", front(grey, grey.size() - 24)},
      {"PNG with too few pixels", png(64, 64, 3)},
      {"PNG with garbage behind its header", pngHeader(2, 2) + garbage},
      {"PNG with a wrong sum", pngHeader(2, 2).replace(20, 1, "\x01")},
      {"PNG without pixels", png(0, 0, 0)},
      {"PNG of 2^31 pixels", png(65536, 32768, 1)},
      {"PNG of 2^62 pixels", png(0x7FFFFFFF, 0x7FFFFFFF, 0)},
      {"PNG just too large", png(4097, 2048, 1)},
      {"JPEG that ends with the signature", front(greyJpeg, 4)},
      {"JPEG that ends with the header", front(greyJpeg, 40)},
      {"JPEG that ends in its pixels", front(greyJpeg, greyJpeg.size() - 12)},
      {"JPEG with garbage behind its signature", front(greyJpeg, 3) + garbage},
      {"JPEG with the largest size", jpeg(65500, 65500)},
      {"JPEG without pixels", jpeg(0, 0)},
      {"GIF that ends with the signature", "GIF89a"},
      {"GIF that ends with the header", gif(1, 1, "")},
      {"GIF with garbage behind its header", gif(1, 1, garbage)},
      {"GIF with the largest size", gif(65535, 65535, onePixel)},
      {"BMP that ends with the signature", "BM"},
      {"BMP with garbage behind its signature", "BM" + garbage},
      {"BMP that ends in its pixels", bmp(64, 64, 100)},
      {"BMP with the largest size", bmp(0x7FFFFFFF, 0x7FFFFFFF, 100)},
      {"BMP without pixels", bmp(0, 0, 0)},
      {"ICO that ends with the signature", "\0\0\1\0"s},
      {"ICO that ends with the list", front(ico(icoBody(2, 2), 2), 22)},
      {"ICO with garbage in place of a picture", ico(garbage, 2)},
      {"ICO with a BMP of the largest size", ico(icoBody(0x7FFFFFFF, 0x3FFFFFFF), 2)},
      {"ICO with a PNG of 2^31 pixels", ico(png(65536, 32768, 1), 2)},
      {"SVG in the middle of text", "text <svg/>"},
      {"SVG that ends at once", "<svg"},
      {"SVG that ends in the middle", front(svg(square), svg(square).size() - 3)},
      {"SVG with an attribute twice", svg("<rect width='4' width='4'/>")},
      {"SVG with a lone ampersand", svg("<text>a & b</text>")},
      {"SVG with an unknown entity", svg("<text>&unknown;</text>")},
      {"SVG with two roots", svg(square) + svg(square)},
      {"SVG with garbage", svg(garbage + "<<<")},
      {"another XML document", "<html><svg/></html>"},
      {"SVG with a bomb of entities", entityBomb()},
      {"SVG with a bomb of repetitions", useBomb()},
      {"SVG that contains itself", svg("<g id='a'><use xlink:href='#a'/></g>")},
      {"SVG with too many elements", svg(repeated("<g/>", 200'000))},
      {"SVG that is too deep", svg(repeated("<g>", 20'000) + repeated("</g>", 20'000))},
  };
}

}  // namespace tessara::testing
