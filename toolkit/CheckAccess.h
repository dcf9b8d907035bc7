#pragma once

/// Makes check boxes and radio buttons known as such to assistive technology, with their value; for all that
/// are made afterwards.
void InstallCheckAccess();
