// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QWidget>

#include <string>
#include <vector>

namespace kelvarin::test
{

/// Walks over a shown window and everything in it. Each walk gives what is wrong, one sentence a fault.

/// Controls that an assistive tool could not name.
std::vector<std::string> controls_without_name(const QWidget& window);

/// Letters that stand behind "&" twice: in the window together with the titles of its menus, or inside one menu.
std::vector<std::string> mnemonic_clashes(const QWidget& window, const QList<QMenu*>& menus = {});

/// Captions of labels, buttons and boxes that have less room than they need.
std::vector<std::string> cut_captions(const QWidget& window);

/// Keys that two actions of the window share.
std::vector<std::string> shared_shortcuts(const QWidget& window);

/// Buttons that show only a picture and have no tool tip.
std::vector<std::string> buttons_without_tool_tip(const QWidget& window);

/// All of the above.
std::vector<std::string> faults_of(const QWidget& window, const QList<QMenu*>& menus = {});

} // namespace kelvarin::test
