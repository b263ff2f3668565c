// The tools and the pixel tests render without a window: textures go up
// through plain OpenGL and the frame comes back as a PNG a person can open.
#include "render/offscreen.h"

#include "render/draw.h"

#include <allegro.h>
#include <GL/gl.h>

#include <cstdint>
#include <cstdio>

TextureId uploadPictureOffscreen(BITMAP *picture)
{
    const int w = picture->w, h = picture->h, depth = bitmap_color_depth(picture);
    std::vector<unsigned char> rgba((size_t)w * h * 4);
    for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++) {
            const int c = getpixel(picture, x, h - 1 - y);
            unsigned char *p = &rgba[((size_t)y * w + x) * 4];
            p[0] = (unsigned char)getr_depth(depth, c);
            p[1] = (unsigned char)getg_depth(depth, c);
            p[2] = (unsigned char)getb_depth(depth, c);
            p[3] = depth == 32 ? (unsigned char)geta32(c) : 255;
        }
    GLuint id = 0;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, w, h, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return id;
}


static uint32_t crcTable[256];

static void makeCrcTable()
{
    for (uint32_t n = 0; n < 256; n++) {
        uint32_t c = n;
        for (int k = 0; k < 8; k++)
            c = (c & 1) ? 0xedb88320u ^ (c >> 1) : c >> 1;
        crcTable[n] = c;
    }
}

static void put32(std::vector<unsigned char> &out, uint32_t v)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back((unsigned char)(v >> shift));
}

static void chunk(FILE *f, const char *type, const std::vector<unsigned char> &data)
{
    std::vector<unsigned char> body(type, type + 4);
    body.insert(body.end(), data.begin(), data.end());
    uint32_t crc = 0xffffffffu;
    for (unsigned char b : body)
        crc = crcTable[(crc ^ b) & 0xff] ^ (crc >> 8);
    std::vector<unsigned char> head;
    put32(head, (uint32_t)data.size());
    fwrite(head.data(), 1, head.size(), f);
    fwrite(body.data(), 1, body.size(), f);
    std::vector<unsigned char> tail;
    put32(tail, crc ^ 0xffffffffu);
    fwrite(tail.data(), 1, tail.size(), f);
}

// An RGB PNG whose image data is deflate's stored blocks: no compression
// library needed, and any viewer reads it.
bool writePng(const std::string &path, int w, int h, const std::vector<unsigned char> &rgbTopFirst)
{
    makeCrcTable();
    std::vector<unsigned char> raw;
    raw.reserve((size_t)(w * 3 + 1) * h);
    for (int y = 0; y < h; y++) {
        raw.push_back(0);
        raw.insert(raw.end(), rgbTopFirst.begin() + (size_t)y * w * 3, rgbTopFirst.begin() + (size_t)(y + 1) * w * 3);
    }
    std::vector<unsigned char> z = {0x78, 0x01};
    uint32_t a = 1, b = 0;
    for (unsigned char v : raw) {
        a = (a + v) % 65521;
        b = (b + a) % 65521;
    }
    for (size_t pos = 0; pos < raw.size() || pos == 0;) {
        const size_t len = std::min<size_t>(65535, raw.size() - pos);
        z.push_back(pos + len >= raw.size() ? 1 : 0);
        z.push_back((unsigned char)(len & 0xff));
        z.push_back((unsigned char)(len >> 8));
        z.push_back((unsigned char)(~len & 0xff));
        z.push_back((unsigned char)((~len >> 8) & 0xff));
        z.insert(z.end(), raw.begin() + pos, raw.begin() + pos + len);
        pos += len;
        if (len == 0)
            break;
    }
    put32(z, (b << 16) | a);

    FILE *f = fopen(path.c_str(), "wb");
    if (!f)
        return false;
    static const unsigned char signature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    fwrite(signature, 1, 8, f);
    std::vector<unsigned char> ihdr;
    put32(ihdr, (uint32_t)w);
    put32(ihdr, (uint32_t)h);
    ihdr.insert(ihdr.end(), {8, 2, 0, 0, 0});   // 8-bit RGB, no interlace
    chunk(f, "IHDR", ihdr);
    chunk(f, "IDAT", z);
    chunk(f, "IEND", {});
    return fclose(f) == 0;
}

std::vector<unsigned char> readFrameRgb(int width, int height)
{
    std::vector<unsigned char> rgb((size_t)width * height * 3);
    std::vector<unsigned char> read((size_t)width * height * 4);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, read.data());
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            for (int c = 0; c < 3; c++)
                rgb[((size_t)y * width + x) * 3 + c] = read[((size_t)(height - 1 - y) * width + x) * 4 + c];
    return rgb;
}
