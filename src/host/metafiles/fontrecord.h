// Fonts in the bytes of a record.
#pragma once

#include "host/graphics/objects.h"
#include "host/metafiles/recordreader.h"
#include "host/metafiles/recordwriter.h"
#include "host/text/codepage.h"

namespace mox::host {

/// With its face name in UTF-16.
Font readFont(RecordReader& record, const CodePage& codePage);
void writeFont(RecordWriter& record, const Font& font, const CodePage& codePage);

} // namespace mox::host
