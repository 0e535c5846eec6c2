#include "practice/functions/Hashes.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace quillon::practice {

namespace {

// The message, a one bit, zeros, and its length in bits, to whole blocks.
std::string Padded(std::string_view bytes, std::size_t block, std::size_t lengthBytes, bool bigEndian) {
    std::string padded(bytes);
    padded.push_back(static_cast<char>(0x80));
    while (padded.size() % block != block - lengthBytes)
        padded.push_back('\0');
    const std::uint64_t bits = static_cast<std::uint64_t>(bytes.size()) * 8;
    std::string length(lengthBytes, '\0');
    for (std::size_t index = 0; index < 8; ++index) {
        const auto byte = static_cast<char>(bits >> (8 * index));
        length[bigEndian ? lengthBytes - 1 - index : index] = byte;
    }
    return padded + length;
}

template <typename Word>
Word BigEndianWord(const std::string& bytes, std::size_t at) {
    Word word = 0;
    for (std::size_t index = 0; index < sizeof(Word); ++index)
        word = static_cast<Word>(word << 8) | static_cast<unsigned char>(bytes[at + index]);
    return word;
}

template <typename Word, std::size_t count>
std::string BigEndianBytes(const std::array<Word, count>& words) {
    std::string bytes;
    for (const Word word : words)
        for (int shift = static_cast<int>(sizeof(Word)) * 8 - 8; shift >= 0; shift -= 8)
            bytes.push_back(static_cast<char>(word >> shift));
    return bytes;
}

std::uint32_t Md5Round(int round, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    switch (round) {
    case 0: return (b & c) | (~b & d);
    case 1: return (d & b) | (~d & c);
    case 2: return b ^ c ^ d;
    default: return c ^ (b | ~d);
    }
}

void Md5Block(const std::string& bytes, std::size_t at, std::array<std::uint32_t, 4>& state) {
    constexpr int shifts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};
    constexpr int steps[4][2] = {{1, 0}, {5, 1}, {3, 5}, {7, 0}}; // which word comes: factor and start
    std::array<std::uint32_t, 16> words{};
    for (std::size_t index = 0; index < 64; ++index)
        words[index / 4] |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + index]))
                            << (8 * (index % 4));
    auto [a, b, c, d] = state;
    for (int index = 0; index < 64; ++index) {
        const int round = index / 16;
        const auto constant =
            static_cast<std::uint32_t>(std::floor(std::fabs(std::sin(index + 1.0)) * 4294967296.0));
        const auto word = words[static_cast<std::size_t>((steps[round][0] * index + steps[round][1]) % 16)];
        const std::uint32_t sum = a + Md5Round(round, b, c, d) + constant + word;
        a = d;
        d = c;
        c = b;
        b += std::rotl(sum, shifts[round][index % 4]);
    }
    state = {state[0] + a, state[1] + b, state[2] + c, state[3] + d};
}

void Sha1Block(const std::string& bytes, std::size_t at, std::array<std::uint32_t, 5>& state) {
    std::array<std::uint32_t, 80> words{};
    for (std::size_t index = 0; index < 80; ++index)
        words[index] =
            index < 16
                ? BigEndianWord<std::uint32_t>(bytes, at + index * 4)
                : std::rotl(words[index - 3] ^ words[index - 8] ^ words[index - 14] ^ words[index - 16], 1);
    auto [a, b, c, d, e] = state;
    for (std::size_t index = 0; index < 80; ++index) {
        constexpr std::uint32_t constants[] = {0x5A827999, 0x6ED9EBA1, 0x8F1BBCDC, 0xCA62C1D6};
        const std::size_t phase = index / 20;
        const std::uint32_t mix = phase == 0   ? (b & c) | (~b & d)
                                  : phase == 2 ? (b & c) | (b & d) | (c & d)
                                               : b ^ c ^ d;
        const std::uint32_t sum = std::rotl(a, 5) + mix + e + constants[phase] + words[index];
        e = d;
        d = c;
        c = std::rotl(b, 30);
        b = a;
        a = sum;
    }
    state = {state[0] + a, state[1] + b, state[2] + c, state[3] + d, state[4] + e};
}

// The first bits of the fractions of the square or cube roots of the first primes are the constants of SHA-2.
// Whole number arithmetic gives them exactly.
__extension__ typedef unsigned __int128 Wide;

bool IsPrime(int number) {
    for (int divisor = 2; divisor * divisor <= number; ++divisor)
        if (number % divisor == 0)
            return false;
    return true;
}

// Compares root^power with prime * 2^(64 * power), where root has 64 bits after the point.
bool RootTooLarge(Wide root, int power, int prime) {
    // The root is below 2^69; long multiplication in 32-bit limbs, which no product overflows.
    std::array<std::uint64_t, 12> product{};
    product[0] = 1;
    for (int factor = 0; factor < power; ++factor) {
        std::array<std::uint64_t, 12> next{};
        for (std::size_t i = 0; i < 8; ++i)
            for (std::size_t j = 0; j < 3; ++j) {
                const auto limb = static_cast<std::uint64_t>((root >> (32 * j)) & 0xFFFFFFFF);
                Wide sum = static_cast<Wide>(product[i]) * limb;
                for (std::size_t at = i + j; sum != 0 && at < next.size(); ++at) {
                    sum += next[at];
                    next[at] = static_cast<std::uint64_t>(sum & 0xFFFFFFFF);
                    sum >>= 32;
                }
            }
        product = next;
    }
    const auto unit = static_cast<std::size_t>(2 * power);
    for (std::size_t at = product.size(); at > unit + 1; --at)
        if (product[at - 1] != 0)
            return true;
    return product[unit] >= static_cast<std::uint64_t>(prime);
}

std::uint64_t RootFraction(int prime, int power) {
    Wide root = 0;
    for (int bit = 68; bit >= 0; --bit) {
        const Wide candidate = root | (static_cast<Wide>(1) << bit);
        if (!RootTooLarge(candidate, power, prime))
            root = candidate;
    }
    return static_cast<std::uint64_t>(root);
}

template <typename Word, std::size_t count>
std::array<Word, count> RootConstants(int power) {
    std::array<Word, count> constants{};
    int prime = 2;
    for (Word& constant : constants) {
        constant = static_cast<Word>(RootFraction(prime, power) >> (64 - sizeof(Word) * 8));
        do
            ++prime;
        while (!IsPrime(prime));
    }
    return constants;
}

struct Sha2Shifts {
    int big0[3], big1[3], small0[3], small1[3]; // the third of a small one is a shift, not a turn
};

template <typename Word>
Word Turn(Word word, const int (&by)[3]) {
    return std::rotr(word, by[0]) ^ std::rotr(word, by[1]) ^ std::rotr(word, by[2]);
}

template <typename Word>
Word TurnAndShift(Word word, const int (&by)[3]) {
    return std::rotr(word, by[0]) ^ std::rotr(word, by[1]) ^ static_cast<Word>(word >> by[2]);
}

template <typename Word, std::size_t rounds>
std::string Sha2(std::string_view message, const Sha2Shifts& shifts) {
    static const std::array<Word, rounds> constants = RootConstants<Word, rounds>(3);
    std::array<Word, 8> state = RootConstants<Word, 8>(2);
    constexpr std::size_t block = sizeof(Word) * 16;
    const std::string bytes = Padded(message, block, sizeof(Word) * 2, true);
    for (std::size_t at = 0; at < bytes.size(); at += block) {
        std::array<Word, rounds> words{};
        for (std::size_t index = 0; index < rounds; ++index)
            words[index] = index < 16
                               ? BigEndianWord<Word>(bytes, at + index * sizeof(Word))
                               : TurnAndShift(words[index - 2], shifts.small1) + words[index - 7] +
                                     TurnAndShift(words[index - 15], shifts.small0) + words[index - 16];
        std::array<Word, 8> v = state;
        for (std::size_t index = 0; index < rounds; ++index) {
            const Word choice = (v[4] & v[5]) ^ (~v[4] & v[6]);
            const Word first = v[7] + Turn(v[4], shifts.big1) + choice + constants[index] + words[index];
            const Word majority = (v[0] & v[1]) ^ (v[0] & v[2]) ^ (v[1] & v[2]);
            const Word second = Turn(v[0], shifts.big0) + majority;
            v = {first + second, v[0], v[1], v[2], v[3] + first, v[4], v[5], v[6]};
        }
        for (std::size_t index = 0; index < 8; ++index)
            state[index] += v[index];
    }
    return BigEndianBytes(state);
}

} // namespace

std::string Md5(std::string_view message) {
    std::array<std::uint32_t, 4> state = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    const std::string bytes = Padded(message, 64, 8, false);
    for (std::size_t at = 0; at < bytes.size(); at += 64)
        Md5Block(bytes, at, state);
    std::string digest;
    for (const std::uint32_t word : state)
        for (int shift = 0; shift < 32; shift += 8)
            digest.push_back(static_cast<char>(word >> shift));
    return digest;
}

std::string Sha1(std::string_view message) {
    std::array<std::uint32_t, 5> state = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
    const std::string bytes = Padded(message, 64, 8, true);
    for (std::size_t at = 0; at < bytes.size(); at += 64)
        Sha1Block(bytes, at, state);
    return BigEndianBytes(state);
}

std::string Sha256(std::string_view message) {
    constexpr Sha2Shifts shifts = {{2, 13, 22}, {6, 11, 25}, {7, 18, 3}, {17, 19, 10}};
    return Sha2<std::uint32_t, 64>(message, shifts);
}

std::string Sha512(std::string_view message) {
    constexpr Sha2Shifts shifts = {{28, 34, 39}, {14, 18, 41}, {1, 8, 7}, {19, 61, 6}};
    return Sha2<std::uint64_t, 80>(message, shifts);
}

} // namespace quillon::practice
