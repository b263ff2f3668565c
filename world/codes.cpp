// The named code sets as one table: every rule of the game that asks "is this
// ground", "does this hold things up", "can the shovel take it" reads this
// table, so a change to a cell code's behaviour is made here and nowhere else.
#include "world/level.h"

namespace {

enum CodeSetBit : uint16_t {
    GroundBit = 1 << 0,
    EdgeCastingBit = 1 << 1,
    EdgeReceivingBit = 1 << 2,
    SupportBit = 1 << 3,
    NeedsSupportBit = 1 << 4,
    SkyKeepBit = 1 << 5,
    DiggableBit = 1 << 6,
    BlastProofBit = 1 << 7,
    RadioactiveBit = 1 << 8,
};

const uint16_t G = GroundBit;
const uint16_t EC = EdgeCastingBit;
const uint16_t ER = EdgeReceivingBit;
const uint16_t S = SupportBit;
const uint16_t NS = NeedsSupportBit;
const uint16_t SK = SkyKeepBit;
const uint16_t D = DiggableBit;
const uint16_t BP = BlastProofBit;
const uint16_t R = RadioactiveBit;

const uint16_t cellCodeSets[CELL_CODE_COUNT] = {
    /* Empty        */ ER,
    /* Dirt1        */ G | EC | S | D,
    /* Dirt2        */ G | EC | S | D,
    /* Radioactive1 */ G | EC | S | R,
    /* Rock1        */ G | EC | S,
    /* Rock2        */ G | EC | S,
    /* Rock3        */ G | EC | S,
    /* Diamond1     */ G | EC | S | BP,
    /* Diamond2     */ G | EC | S | BP,
    /* Diamond3     */ G | EC | S | BP,
    /* HiddenBlock  */ G,
    /* Border       */ G | EC | S | BP,
    /* Pod          */ G | EC | BP,
    /* Rocket       */ ER | BP | SK,
    /* Spikes       */ ER | NS,
    /* Vortex       */ ER | BP | SK,
    /* Radioactive2 */ G | EC | R,
    /* Credits      */ ER | SK,
    /* Water        */ ER | BP,
    /* WorldItem1   */ ER | NS,
    /* WorldItem2   */ ER | NS,
    /* WorldItem3   */ ER | NS | D,
    /* WorldItem4   */ ER | NS | D,
    /* Explosive    */ ER | NS,
};

// Codes a level should never hold still count as ground, so a damaged cell
// blocks walking and building instead of opening a hole.
inline bool inSet(int32_t code, uint16_t bit)
{
    if (code < 0 || code >= CELL_CODE_COUNT)
        return bit == GroundBit;
    return (cellCodeSets[code] & bit) != 0;
}

} // namespace

bool isGround(int32_t code) { return inSet(code, GroundBit); }
bool isEdgeCasting(int32_t code) { return inSet(code, EdgeCastingBit); }
bool isEdgeReceiving(int32_t code) { return inSet(code, EdgeReceivingBit); }
bool isSupport(int32_t code) { return inSet(code, SupportBit); }
bool isNeedsSupport(int32_t code) { return inSet(code, NeedsSupportBit); }
bool isSkyKeep(int32_t code) { return inSet(code, SkyKeepBit); }
bool isDiggable(int32_t code) { return inSet(code, DiggableBit); }
bool isBlastProof(int32_t code) { return inSet(code, BlastProofBit); }
bool isRadioactive(int32_t code) { return inSet(code, RadioactiveBit); }
