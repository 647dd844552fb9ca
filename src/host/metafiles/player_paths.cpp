#include "host/metafiles/enhancedplayer.h"

namespace mox::host {

bool EnhancedPlayer::beginPath(RecordReader&) {
    stage_.beginPath();
    return true;
}

bool EnhancedPlayer::abortPath(RecordReader&) {
    stage_.abortPath();
    return true;
}

template <bool (Stage::*Member)()> bool EnhancedPlayer::pathStep(RecordReader&) {
    return (stage_.*Member)();
}

template <bool IsFilled, bool IsStroked> bool EnhancedPlayer::drawPath(RecordReader&) {
    return stage_.drawPath(IsFilled, IsStroked);
}

bool EnhancedPlayer::widenPath(RecordReader&) {
    return stage_.widenPath();
}

bool EnhancedPlayer::selectClipPath(RecordReader& record) {
    return stage_.selectClipPath(record.u32());
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::pathRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    static const Entry entries[]{
        {Type::beginPath, &Player::beginPath},
        {Type::endPath, &Player::pathStep<&Stage::endPath>},
        {Type::closeFigure, &Player::pathStep<&Stage::closeFigure>},
        {Type::flattenPath, &Player::pathStep<&Stage::flattenPath>},
        {Type::widenPath, &Player::widenPath},
        {Type::abortPath, &Player::abortPath},
        {Type::fillPath, &Player::drawPath<true, false>},
        {Type::strokePath, &Player::drawPath<false, true>},
        {Type::strokeAndFillPath, &Player::drawPath<true, true>},
        {Type::selectClipPath, &Player::selectClipPath},
    };
    return entries;
}

} // namespace mox::host
