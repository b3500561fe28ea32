#include "support/schema_test.h"

namespace tessel::test {

namespace {

class CompatibleType : public SchemaTest {};

// With the template's limits: 4 digits in a SMALLINT, 9 in an INTEGER, 31 in a DECIMAL.
TEST_F(CompatibleType, ComesFromThePicture) {
    struct Case {
        const char* picture;
        std::int32_t type, precision, scale;
    };
    const Case cases[] = {
        {"X(10)", 1, 10, 0},     {"XXX", 1, 3, 0},       {"X(5)9(3)", 1, 8, 0},  {"A(4)", 1, 4, 0},
        {"9(4)", 5, 4, 0},       {"S9(4)", 4, 4, 0},     {"S9(3)", 5, 3, 0},     {"9(5)", 4, 5, 0},
        {"9(9)", 4, 9, 0},       {"9(10)", 3, 10, 0},    {"s9(3)", 5, 3, 0},     {"9(7)V99", 3, 9, 2},
        {"S9(7)V9(2)", 3, 9, 2}, {"9(3).9(2)", 3, 5, 2}, {"9(29)V99", 3, 31, 2}, {"9(30)V99", 1, 32, 0},
        {"9(3", 5, 3, 0},        {"9()", 5, 0, 0},       {"9(x)", 5, 0, 0},      {"9(-3)", 5, 0, 0},
        {"99", 5, 2, 0},         {"Z(3)9", 5, 3, 0},  // an unknown character's count adds one less
    };
    for (const auto& c : cases) {
        std::int32_t type = 0, precision = 77, scale = 77;
        EXPECT_TRUE(Ws().GetCompatibleType(0, 0, c.picture, "", type, precision, scale)) << c.picture;
        EXPECT_EQ(std::tuple(type, precision, scale), std::tuple(c.type, c.precision, c.scale)) << c.picture;
    }
}

TEST_F(CompatibleType, KeepsATypeThatIsGiven) {
    struct Case {
        std::int32_t type, length;
        bool fits;
        std::int32_t precision, scale;
    };
    const Case cases[] = {
        {4, 0, true, 7, 7}, {12, 0, false, 7, 7}, {3, 10, true, 10, 2}, {999, 10, true, 7, 7}};
    for (const auto& c : cases) {
        std::int32_t type = c.type, precision = 7, scale = 7;
        EXPECT_EQ(Ws().GetCompatibleType(c.length, 2, "9", "", type, precision, scale), c.fits);
        EXPECT_EQ(std::tuple(type, precision, scale), std::tuple(c.type, c.precision, c.scale));
    }
}

TEST_F(CompatibleType, RefusesNoPictureAndAnEndlessOne) {
    std::int32_t type = 0, precision = 7, scale = 7;
    EXPECT_FALSE(Ws().GetCompatibleType(5, 0, "", "", type, precision, scale));
    EXPECT_EQ(precision, 7);
    EXPECT_THROW(
        (void)Ws().GetCompatibleType(0, 0, "X(99999999999)X(99999999999)", "", type, precision, scale),
        Error);
}

}  // namespace

}  // namespace tessel::test
