#pragma once

namespace kestrune::qt {

/// Lets assistive technology hear what a control is and shows where the toolkit's own account is
/// wrong: windows, pictures, combos, options, keys and links. To be called once there is a
/// QApplication; calling it again does nothing.
void InstallAccessibility();

}  // namespace kestrune::qt
