export const works = true;
