#pragma once

namespace vantry {

/// Makes known to assistive tools what Qt cannot guess of the components of this folder: groups and what they
/// are for, and the value of a star. Components call it; calling it again does nothing.
void installAccessibility();

}  // namespace vantry
