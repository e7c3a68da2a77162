int StartDesktop();
