// The code sets against their member lists, and the promise that any int is
// safe to ask about (cells written by a damaged level or a stray tool).
#include <gtest/gtest.h>

#include <climits>
#include <set>

#include "world/level.h"

TEST(CellCodes, SetsHoldExactlyTheirMembers)
{
    struct Named {
        const char *name;
        bool (*test)(int32_t);
        std::set<int32_t> members;
    };
    const Named sets[] = {
        {"Ground", isGround, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 16}},
        {"EdgeCasting", isEdgeCasting, {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 16}},
        {"EdgeReceiving", isEdgeReceiving, {0, 13, 14, 15, 17, 18, 19, 20, 21, 22, 23}},
        {"Support", isSupport, {1, 2, 3, 4, 5, 6, 7, 8, 9, 11}},
        {"NeedsSupport", isNeedsSupport, {14, 19, 20, 21, 22, 23}},
        {"SkyKeep", isSkyKeep, {13, 15, 17}},
        {"Diggable", isDiggable, {1, 2, 21, 22}},
        {"BlastProof", isBlastProof, {7, 8, 9, 11, 12, 13, 15, 18}},
        {"Radioactive", isRadioactive, {3, 16}},
    };
    for (const Named &set : sets)
        for (int32_t code = 0; code <= Explosive; code++)
            EXPECT_EQ(set.members.count(code) == 1, set.test(code))
                << set.name << " and code " << code;

    for (int32_t odd : {-1, 24, 25, 100, -100000, INT_MIN, INT_MAX}) {
        EXPECT_TRUE(isGround(odd)) << odd;
        for (const Named &set : sets) {
            if (set.test != isGround) {
                EXPECT_FALSE(set.test(odd)) << set.name << " and code " << odd;
            }
        }
    }
}
