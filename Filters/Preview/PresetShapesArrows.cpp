#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getArrowShapes()
{
    return R"(
@acrossArrow a1=pin(0,adj1,100000); a2=pin(0,adj2,100000*w/ss); d=ss*a2/100000; e=h*a1/200000;
    y1=vc-e; y2=vc+e;
@alongArrow a1=pin(0,adj1,100000); a2=pin(0,adj2,100000*h/ss); d=ss*a2/100000; e=w*a1/200000;
    x1=hc-e; x2=hc+e;
rightArrow adj1:50000; adj2:50000; @acrossArrow; x=r-d;
    T l y1 x+y1*d/hd2 y2;
    P M l y1 L x y1 x t r vc x b x y2 l y2 Z;
leftArrow adj1:50000; adj2:50000; @acrossArrow;
    T d-y1*d/hd2 y1 r y2;
    P M l vc L d t d y1 r y1 r y2 d y2 d b Z;
upArrow adj1:50000; adj2:50000; @alongArrow;
    T x1 d-x1*d/wd2 x2 b;
    P M l d L hc t r d x2 d x2 b x1 b x1 d Z;
downArrow adj1:50000; adj2:50000; @alongArrow; y=b-d;
    T x1 t x2 y+x1*d/wd2;
    P M l y L x1 y x1 t x2 t x2 y r y hc b Z;
leftRightArrow adj1:50000; adj2:50000; a1=pin(0,adj1,100000); a2=pin(0,adj2,50000*w/ss);
    x=ss*a2/100000; e=h*a1/200000; y1=vc-e; y2=vc+e; i=x-y1*x/hd2;
    T i y1 r-i y2;
    P M l vc L x t x y1 r-x y1 r-x t r vc r-x b r-x y2 x y2 x b Z;
upDownArrow adj1:50000; adj2:50000; a1=pin(0,adj1,100000); a2=pin(0,adj2,50000*h/ss);
    y=ss*a2/100000; e=w*a1/200000; x1=hc-e; x2=hc+e; i=y-x1*y/wd2;
    T x1 i x2 b-i;
    P M l y L hc t r y x2 y x2 b-y r b-y hc b l b-y x1 b-y x1 y Z;
quadArrow adj1:22500; adj2:22500; adj3:22500; a2=pin(0,adj2,50000); maxAdj1=a2*2; a1=pin(0,adj1,maxAdj1);
    a3=pin(0,adj3,(100000-maxAdj1)/2); x1=ss*a3/100000; d=ss*a2/100000; e=ss*a1/200000;
    x2=hc-d; x3=hc-e; x4=hc+e; x5=hc+d; x6=r-x1; y2=vc-d; y3=vc-e; y4=vc+e; y5=vc+d; y6=b-x1; i=e*x1/d;
    T i y3 r-i y4;
    P M l vc L x1 y2 x1 y3 x3 y3 x3 x1 x2 x1 hc t x5 x1 x4 x1 x4 y3 x6 y3 x6 y2 r vc x6 y5 x6 y4 x4 y4 x4 y6
        x5 y6 hc b x2 y6 x3 y6 x3 y4 x1 y4 x1 y5 Z;
stripedRightArrow adj1:50000; adj2:50000; a1=pin(0,adj1,100000); a2=pin(0,adj2,84375*w/ss);
    x4=ss*5/32; d=ss*a2/100000; x5=r-d; e=h*a1/200000; y1=vc-e; y2=vc+e;
    T x4 y1 r-e*d/hd2 y2;
    P M l y1 L ssd32 y1 ssd32 y2 l y2 Z M ssd16 y1 L ssd8 y1 ssd8 y2 ssd16 y2 Z
        M x4 y1 L x5 y1 x5 t r vc x5 b x5 y2 x4 y2 Z;
notchedRightArrow adj1:50000; adj2:50000; @acrossArrow; x=r-d; n=e*d/hd2;
    T n y1 r-n y2;
    P M l y1 L x y1 x t r vc x b x y2 l y2 n vc Z;
)";
}

const char* getBentArrowShapes()
{
    return R"(
leftRightUpArrow adj1:25000; adj2:25000; adj3:25000; a2=pin(0,adj2,50000); maxAdj1=a2*2;
    a1=pin(0,adj1,maxAdj1); a3=pin(0,adj3,(100000-maxAdj1)/2); x1=ss*a3/100000; d=ss*a2/100000;
        e=ss*a1/200000;
    x2=hc-d; x3=hc-e; x4=hc+e; x5=hc+d; x6=r-x1; y2=b-d*2; y4=b-d; y3=y4-e; y5=y4+e; i=e*x1/d;
    T i y3 r-i y5;
    P M l y4 L x1 y2 x1 y3 x3 y3 x3 x1 x2 x1 hc t x5 x1 x4 x1 x4 y3 x6 y3 x6 y2 r y4 x6 b x6 y5 x1 y5 x1 b Z;
leftUpArrow adj1:25000; adj2:25000; adj3:25000; a2=pin(0,adj2,50000); maxAdj1=a2*2; a1=pin(0,adj1,maxAdj1);
    a3=pin(0,adj3,100000-maxAdj1); x1=ss*a3/100000; d=ss*a2/100000; e=ss*a1/200000;
    x2=r-d*2; y2=b-d*2; x4=r-d; y4=b-d; x3=x4-e; x5=x4+e; y3=y4-e; y5=y4+e;
    T e*x1/d y3 x4 y5;
    P M l y4 L x1 y2 x1 y3 x3 y3 x3 x1 x2 x1 x4 t r x1 x5 x1 x5 y5 x1 y5 x1 b Z;
bentUpArrow adj1:25000; adj2:25000; adj3:25000; a1=pin(0,adj1,50000); a2=pin(0,adj2,50000);
    a3=pin(0,adj3,50000); y1=ss*a3/100000; d=ss*a2/100000; e=ss*a1/200000;
    x1=r-d*2; x3=r-d; x2=x3-e; x4=x3+e; y2=b-e*2;
    T l y2 x4 b;
    P M l y2 L x2 y2 x2 y1 x1 y1 x3 t r y1 x4 y1 x4 b l b Z;
bentArrow adj1:25000; adj2:25000; adj3:25000; adj4:43750; a2=pin(0,adj2,50000); a1=pin(0,adj1,a2*2);
    a3=pin(0,adj3,50000); th=ss*a1/100000; aw=ss*a2/100000; dh=aw-th/2; x4=r-ss*a3/100000;
    a4=pin(0,adj4,100000*min(x4,b-dh)/ss); bd=ss*a4/100000; bd2=max(bd-th,0); y3=dh+th;
    P M l b L l dh+bd A bd bd cd2 cd4 L x4 dh x4 t r aw x4 y3+dh x4 y3 th+bd2 y3 A bd2 bd2 3cd4 -cd4 L th b Z;
uturnArrow adj1:25000; adj2:25000; adj3:25000; adj4:43750; adj5:75000; a2=pin(0,adj2,25000);
    a1=pin(0,adj1,a2*2); a3=pin(0,adj3,(100000-a1*ss/h)*h/ss); a5=pin((a3+a1)*ss/h,adj5,100000);
    th=ss*a1/100000; aw=ss*a2/100000; dh=aw-th/2; y5=h*a5/100000; y4=y5-ss*a3/100000; x9=r-dh;
    a4=pin(0,adj4,min(x9/2,y4)*100000/ss); bd=ss*a4/100000; bd2=max(bd-th,0); x3=th+bd2;
    x8=r-aw; x6=x8-aw; x7=x6+dh;
    P M l b L l bd A bd bd cd2 cd4 L x9-bd t A bd bd 3cd4 cd4 L x9 y4 r y4 x8 y5 x6 y4 x7 y4 x7 x3
        A bd2 bd2 0 -cd4 L x3 th A bd2 bd2 3cd4 -cd4 L th b Z;
swooshArrow adj1:25000; adj2:16667; a1=pin(1,adj1,75000); a2=pin(0,adj2,70000*w/ss);
    ad1=h*a1/100000; xB=r-ss*a2/100000; yB=ssd8; alfa=cd4/14; dx0=tan(ssd8,alfa); yF=yB+ad1;
    xF=xB+tan(ad1,alfa); xE=xF+dx0; yE=yF+ssd8; yD=yE/2-h/20;
    P M l b Q wd6 hd6+hd6 xB yB L xB-dx0 t r yD xE yE xF yF Q wd4 yF+hd12 l b Z;
)";
}

} // namespace QV::Filters
