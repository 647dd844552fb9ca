// The bodies of the operations for drawing, one source a group; those of a group are beside its code.
#pragma once

namespace mox::host {

class Machine;

/// Contexts, objects, modes and colours.
void wireContexts(Machine& machine);
/// Lines and areas.
void wireShapes(Machine& machine);
/// Bitmaps and copies of pixels.
void wireCopies(Machine& machine);
/// Fonts and text.
void wireText(Machine& machine);
/// Icons and image lists.
void wireIcons(Machine& machine);
void wireMetafiles(Machine& machine);
/// Windows, the screen, colours of the system, visual styles.
void wireDesktop(Machine& machine);
/// Objects of the run-time layer.
void wirePictures(Machine& machine);

} // namespace mox::host
