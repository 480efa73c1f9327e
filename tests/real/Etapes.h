#pragma once
// The steps of a program under test that settle what is on the disk, counted from 1: it is killed
// before one of them, or the disk is full from there on.

struct Etapes {
  int faites = 0;
  int mort = 0;            ///< the one before which the process is killed; 0 for none
  int plein = 0;           ///< the first one that finds a full disk; 0 for none
  bool ecritures = false;  ///< each writing is a step too
};

inline Etapes etapes;
